#pragma once

#include <moxui/ui/DragData.h>

namespace moxui::platform {

/// Takes data to other windows and programs under the pointer.
class DragSource {
 public:
  virtual ~DragSource();
  /// Runs until the drop. `effects` are the sums of ui::DropEffect offered; gives the one taken.
  virtual int Drag(ui::UI_Node* source, ui::TransferData const& data, int effects) = 0;
};

/// Has another one drag in place of the application's, as tests do; it stays its owner's. Null (as at first)
/// takes that back. Gives the one before.
DragSource* SetDragSource(DragSource* source);
/// The one that is set, else the application's, else null.
DragSource* GetDragSource();

}  // namespace moxui::platform
