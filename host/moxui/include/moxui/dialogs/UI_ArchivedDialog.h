#pragma once

#include <moxui/dialogs/UI_Dialog.h>
#include <moxui/ui/UI_NodeBuilder.h>

#include <string_view>

namespace moxui::utility {
class ResourceManager;
}

namespace moxui::dialogs {

/// A dialog whose views are a view archive among a module's resources. It is as large as the archive's root,
/// and larger where texts need it.
class UI_ArchivedDialog : public UI_Dialog {
 public:
  /// Throws the null-pointer exception when there is no such archive or its root is no UI_SubView; the
  /// builder's errors go through. Resources may be gone after the construction.
  UI_ArchivedDialog(scriber::SupplierInterface const* supplier, utility::ResourceManager const* resources,
                    std::string_view name, moxcore::Utf16String const& title, WindowVariant const& window,
                    ui::CustomNodeFactory const& factory = {});
  ~UI_ArchivedDialog() override;

  /// Null when the archive has no such id.
  moxcore::utility::IntrusivePtr<ui::UI_Node> GetNodeForID(std::string_view id) const;

 private:
  ui::NodeMap mNodes;
};

}  // namespace moxui::dialogs
