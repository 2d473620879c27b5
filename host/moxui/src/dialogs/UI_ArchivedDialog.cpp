#include <moxcore/string/Encoding.h>
#include <moxcore/utility/PointerCasts.h>
#include <moxui/dialogs/UI_ArchivedDialog.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/AutoLayout.h>

namespace moxui::dialogs {

namespace {

using moxcore::utility::IntrusivePtr;

/// Texts are measured on a surface of one pixel. Without a supplier the archive's own layout stays.
void FitTexts(ui::UI_SubView& view, scriber::SupplierInterface const* supplier) {
  scriber::SurfaceP const surface = supplier != nullptr ? supplier->NewOffscreenSurface(1, 1, 1) : nullptr;
  if (surface) {
    scriber::Scriber scratch(supplier, surface.Get());
    ui::AutoLayoutSubView(&view, &scratch);
  }
}

}  // namespace

UI_ArchivedDialog::UI_ArchivedDialog(scriber::SupplierInterface const* supplier,
                                     utility::ResourceManager const* resources, std::string_view name,
                                     moxcore::Utf16String const& title, WindowVariant const& window,
                                     ui::CustomNodeFactory const& factory)
    : UI_Dialog(supplier, title, window, {}) {
  auto const root = moxcore::utility::DynamicCast<ui::UI_SubView>(ui::UI_NodeBuilder::LoadViewFromXML(
      resources, supplier, moxcore::string::AsciiToUTF16(name), mNodes, factory));
  FitTexts(*root, supplier);
  ExtentT<float> const size = root->UI_GetLocalRectF(ui::RectSpace::kOwn).Extent();
  SetSize(size);
  root->UI_SetLocalRectF({0, 0, size.width, size.height});
  root->UI_Show();
  GetContentView()->ChildPushBack(root);
}

UI_ArchivedDialog::~UI_ArchivedDialog() = default;

IntrusivePtr<ui::UI_Node> UI_ArchivedDialog::GetNodeForID(std::string_view id) const {
  auto const found = mNodes.find(moxcore::Utf8String(id));
  return found != mNodes.end() ? found->second : nullptr;
}

}  // namespace moxui::dialogs
