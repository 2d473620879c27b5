#include <moxcore/config/Errors.h>
#include <moxcore/debug/TypeName.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/utility/PointerCasts.h>
#include <moxmediaui/XMLHostView.h>

#include <typeinfo>

namespace moxmediaui {

XMLHostView::XMLHostView(std::string const& resourceName) : mResourceName(resourceName) {}

XMLHostView::~XMLHostView() {
  mContentView.Reset();
  mNodeMap.clear();
}

void XMLHostView::Init(ResourceManager* resources, SupplierInterface const* supplier) {
  mDrawSupplier = supplier;
  auto const factory = [this](Utf8String const& type) { return CreateCustomNode(type); };
  auto const root = moxui::ui::UI_NodeBuilder::LoadViewFromXML(
      resources, supplier, moxcore::string::AsciiToUTF16(mResourceName), mNodeMap, factory);
  mContentView = moxcore::utility::DynamicCast<UI_SubView>(root);
  if (mContentView) {
    ChildPushBack(mContentView);
  }
  ConnectControls();
  if (!mContentView) {
    moxcore::config::DoThrowNullPtrException(moxcore::debug::GetTypeName(typeid(UI_SubView)));
  }
  mRecommendedSize = mContentView->UI_GetLocalRectF(moxui::ui::RectSpace::kParent).Extent();
  mContentView->UI_Show();
}

IntrusivePtr<UI_Node> XMLHostView::CreateCustomNode(Utf8String const&) const {
  return nullptr;
}

void XMLHostView::UpdateSize(RectT<float> const& rect) {
  if (mContentView) {
    mContentView->UI_SetLocalRectF(rect);
  }
}

ExtentT<float> XMLHostView::UI_GetRecommendedSize(Scriber*) const {
  return mRecommendedSize;
}

void XMLHostView::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  UpdateSize(rect);
}

}  // namespace moxmediaui
