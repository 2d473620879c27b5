#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/utility/PointerCasts.h>
#include <moxmediaui/CurvePointEditDialog.h>
#include <moxmediaui/Module.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_NodeBuilder.h>

#include <typeinfo>

namespace moxmediaui {

namespace {

using moxui::controls::UI_HotTextNumber;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::ui::UI_NodeBuilder;
using moxui::ui::UI_SubView;

UI_NodeBuilder::Tree BuildTree() {
  moxui::utility::ResourceBytes bytes;
  moxui::utility::ResourceManager const* const resources = GetResourceManager();
  if (resources == nullptr) {
    moxcore::config::DoThrowNullPtrException(
        moxcore::debug::GetTypeName(typeid(moxui::utility::ResourceManager)));
  }
  resources->GetBinary(moxui::utility::ResourceType("xml"),
                       moxui::utility::ResourceName("CurvePointEditDialog"), &bytes);
  UI_NodeBuilder const builder({reinterpret_cast<char const*>(bytes.data()), bytes.size()});
  return builder.Build(GetDrawSupplier());
}

/// Null for an id that isn't there; a node of another type is an error.
template <class Control>
IntrusivePtr<Control> FindControl(UI_NodeBuilder::Tree const& tree, char const* id) {
  auto const found = tree.nodes.find(id);
  return found != tree.nodes.end() ? moxcore::utility::CheckedCast<Control>(found->second) : nullptr;
}

/// For assistive software, which doesn't see that the caption stands beside the number.
void NameAfter(IntrusivePtr<UI_HotTextNumber> const& number, Utf16String const& caption) {
  if (number) {
    number->SetAccessibleName(moxcore::string::UTF16to8(caption));
  }
}

/// Sizes a view to its texts, which are measured on a surface of one pixel. Without one it stays as it is.
void FitTexts(moxui::ui::UI_Node* root) {
  SupplierInterface const* const supplier = GetDrawSupplier();
  SurfaceP const surface = supplier != nullptr ? supplier->NewOffscreenSurface(1, 1, 1) : nullptr;
  auto* const view = dynamic_cast<UI_SubView*>(root);
  if (surface && view != nullptr) {
    Scriber scratch(supplier, surface.Get());
    moxui::ui::AutoLayoutSubView(view, &scratch);
  }
}

}  // namespace

CurvePointEditDialog::CurvePointEditDialog(Utf16String const& title, Utf16String const& caption1,
                                           Utf16String const& caption2,
                                           moxui::dialogs::WindowVariant const& parent) {
  CreateDialogAndControls(title, caption1, caption2, parent);
}

CurvePointEditDialog::CurvePointEditDialog(CurvePointEditDialog const& other) = default;
CurvePointEditDialog::~CurvePointEditDialog() = default;

void CurvePointEditDialog::CreateDialogAndControls(Utf16String const& title, Utf16String const& caption1,
                                                   Utf16String const& caption2,
                                                   moxui::dialogs::WindowVariant const& parent) {
  UI_NodeBuilder::Tree const tree = BuildTree();
  auto const okButton = FindControl<UI_TextButton>(tree, "OKButton");
  auto const cancelButton = FindControl<UI_TextButton>(tree, "CancelButton");
  mCaption1 = FindControl<UI_StaticText>(tree, "StaticText1");
  mCaption2 = FindControl<UI_StaticText>(tree, "StaticText2");
  mNumber1 = FindControl<UI_HotTextNumber>(tree, "Number1");
  mNumber2 = FindControl<UI_HotTextNumber>(tree, "Number2");
  mCaption1->SetValue(caption1);
  mCaption2->SetValue(caption2);
  NameAfter(mNumber1, caption1);
  NameAfter(mNumber2, caption2);
  FitTexts(tree.root.Get());
  ExtentT<float> const size = tree.root->UI_GetLocalRectF(moxui::ui::RectSpace::kOwn).Extent();
  mDialog =
      moxcore::utility::MakeIntrusive<moxui::dialogs::UI_Dialog>(GetDrawSupplier(), title, parent, size);
  mDialog->SetSize(size);
  mDialog->SetMinimumSize(mDialog->GetLocalRectF().Extent());
  tree.root->UI_Show();
  mDialog->GetContentView()->ChildPushBack(tree.root);
  mDialog->SetOkButton(okButton);
  mDialog->SetCancelButton(cancelButton);
}

void CurvePointEditDialog::RunModal() {
  mDialog->RunModal();
  mResponse = mDialog->GetViewContainer()->GetResponse();
}

}  // namespace moxmediaui
