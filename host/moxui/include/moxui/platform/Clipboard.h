#pragma once

#include <moxui/ui/DragData.h>

namespace moxui::platform {

/// The desktop's clipboard.
class Clipboard {
 public:
  virtual ~Clipboard();
  virtual ui::TransferData GetData() const = 0;
  virtual void SetData(ui::TransferData const& data) = 0;
};

}  // namespace moxui::platform
