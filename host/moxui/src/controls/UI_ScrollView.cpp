#include "../skins/BoxPainting.h"
#include "ScrollLayout.h"

#include <moxcore/config/Localizer.h>
#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/string/Encoding.h>
#include <moxui/controls/UI_ScrollView.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/ThemeColorID.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/PointerEvent.h>

#include <algorithm>
#include <utility>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;

constexpr float kLineStep = 20.0f;

// Whether traversal would stop at a node or below it.
bool HasStop(ui::UI_Node const& node) {
  if (!node.UI_IsShown() || node.UI_IsDisabled()) {
    return false;
  }
  if (node.UI_WantsKeyboardFocus()) {
    return true;
  }
  ui::UI_Container const* const container = node.UI_GetContainer();
  return container != nullptr &&
         std::any_of(container->ChildBegin(), container->ChildEnd(),
                     [](IntrusivePtr<ui::UI_Node> const& child) { return HasStop(*child); });
}

}  // namespace

UI_ScrollView::UI_ScrollView(IntrusivePtr<ui::UI_Node> content, unsigned style)
    : mClipView(MakeIntrusive<ui::UI_SubView>()),
      mContentView(MakeIntrusive<ui::UI_SubView>()),
      mStyle(style) {
  mClipView->UI_SetClipsChildren(true);
  mContentView->ChildPushBack(std::move(content));
  mClipView->ChildPushBack(mContentView);
  ChildPushBack(mClipView);
  auto const moved = moxcore::messaging::BindMessageFunction(this, &UI_ScrollView::BarMoved);
  auto const addBar = [&](Orientation orientation) {
    auto bar = MakeIntrusive<UI_ScrollBar>(orientation);
    bar->NotifyWhenChangedInteractively(moved);
    bar->UI_Hide(true);
    ChildPushBack(bar);
    return bar;
  };
  if ((style & ScrollViewStyle::kHorizontalBar) != 0) {
    mBarX = addBar(Orientation::kHorizontal);
  }
  if ((style & ScrollViewStyle::kVerticalBar) != 0) {
    mBarY = addBar(Orientation::kVertical);
  }
}

UI_ScrollView::~UI_ScrollView() = default;

void UI_ScrollView::SetViewRect(RectT<float> const& rect) {
  UI_SetLocalRectF(rect);
  Update();
}

void UI_ScrollView::SetContentRect(RectT<float> const& rect) {
  mGivenExtent = rect.Extent();
  Update();
}

// The children's own extent decides unless one was given; a view that is to fill the width counts for its
// height only.
ExtentT<float> UI_ScrollView::ContentExtent(float viewedWidth) const {
  bool const fitsWidth = (mStyle & ScrollViewStyle::kFitContentWidth) != 0;
  if (mGivenExtent) {
    return {fitsWidth ? viewedWidth : mGivenExtent->width, mGivenExtent->height};
  }
  ExtentT<float> extent;
  for (auto child = mContentView->ChildBegin(); child != mContentView->ChildEnd(); ++child) {
    if ((*child)->UI_IsShown()) {
      RectT<float> const rect = (*child)->UI_GetLocalRectF(ui::RectSpace::kParent);
      extent.width = std::max(extent.width, rect.Right());
      extent.height = std::max(extent.height, rect.Bottom());
    }
  }
  return {fitsWidth ? viewedWidth : extent.width, extent.height};
}

void UI_ScrollView::Update() {
  RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn);
  float const thickness = UI_ScrollBar::GetThickness();
  ScrollLayout const layout = GetScrollLayout(
      {std::max(rect.width, 0.0f), std::max(rect.height, 0.0f)}, thickness, mBarX != nullptr,
      mBarY != nullptr, skins::IsRightToLeft(), [this](float width) { return ContentExtent(width); });
  mClipView->UI_SetLocalRectF(layout.viewed);
  PointT<float> const offset(HoldOffset(mOffset.x, layout.MaximumOffset().x),
                             HoldOffset(mOffset.y, layout.MaximumOffset().y));
  RectT<float> const content(-offset.x, -offset.y, layout.content.width, layout.content.height);
  bool const hasScrolled = offset != mOffset;
  mOffset = offset;
  mContentView->UI_SetLocalRectF(content);
  auto const placeBar = [](UI_ScrollBar* bar, RectT<float> const& place, float length, float viewed,
                           float at) {
    if (bar != nullptr) {
      bar->SetLengths(length, viewed);
      bar->SetOffset(at);
      bar->UI_SetLocalRectF(place);
      bar->UI_Show(!place.IsEmpty());
    }
  };
  placeBar(mBarX.Get(), layout.barX, layout.content.width, layout.viewed.width, offset.x);
  placeBar(mBarY.Get(), layout.barY, layout.content.height, layout.viewed.height, offset.y);
  if (hasScrolled) {
    Scrolled();
  }
}

RectT<float> UI_ScrollView::GetViewedRect() const {
  RectT<float> const clip = mClipView->UI_GetLocalRectF(ui::RectSpace::kOwn);
  return {mOffset.x, mOffset.y, clip.width, clip.height};
}

void UI_ScrollView::ScrollTo(PointT<float> offset) {
  RectT<float> const viewed = GetViewedRect();
  RectT<float> const content = mContentView->UI_GetLocalRectF(ui::RectSpace::kOwn);
  PointT<float> const held(HoldOffset(offset.x, content.width - viewed.width),
                           HoldOffset(offset.y, content.height - viewed.height));
  if (held == mOffset) {
    return;
  }
  IntrusivePtr<UI_ScrollView> const self(this);
  mOffset = held;
  mContentView->UI_SetLocalRectF({-held.x, -held.y, content.width, content.height});
  if (mBarX) {
    mBarX->SetOffset(held.x);
  }
  if (mBarY) {
    mBarY->SetOffset(held.y);
  }
  Scrolled();
}

void UI_ScrollView::ScrollIntoView(RectT<float> const& rect, bool alignTop) {
  RectT<float> const viewed = GetViewedRect();
  float const x = GetOffsetThatShows(viewed.left, viewed.width, rect.left, rect.width);
  float const y = alignTop ? rect.top : GetOffsetThatShows(viewed.top, viewed.height, rect.top, rect.height);
  ScrollTo({x, y});
}

moxcore::messaging::Connection UI_ScrollView::NotifyWhenScrolled(MessageHandler function) {
  return mScrollListeners.Add(std::move(function));
}

void UI_ScrollView::Scrolled() {
  UI_ScrolledMessage message(*this);
  IntrusivePtr<UI_ScrollView> const self(this);
  mScrollListeners.Send(message);
}

void UI_ScrollView::BarMoved(moxcore::messaging::Message*) {
  ScrollTo({mBarX ? mBarX->GetOffset() : mOffset.x, mBarY ? mBarY->GetOffset() : mOffset.y});
}

void UI_ScrollView::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  Update();
}

void UI_ScrollView::UI_LayoutChildren() {
  UI_SubView::UI_LayoutChildren();
  Update();
}

void UI_ScrollView::UI_SkinSetUpdated() {
  UI_SubView::UI_SkinSetUpdated();
  Update();
}

bool UI_ScrollView::UI_DoPointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) {
  auto const* const wheel = ui::WheelEvent::GetWheelEventForPointerEvent(event);
  if (wheel == nullptr) {
    return UI_SubView::UI_DoPointerEvent(node, event);
  }
  PointT<float> distance = wheel->GetDistance();
  bool const canMoveSideways = mBarX && mBarX->IsNeeded();
  bool const canMoveDown = mBarY && mBarY->IsNeeded();
  if (distance.x == 0.0f &&
      (wheel->GetModKey().Has(ui::ModKey::kShift) || (canMoveSideways && !canMoveDown))) {
    std::swap(distance.x, distance.y);
  }
  PointT<float> const before = mOffset;
  ScrollTo(mOffset - distance);
  return mOffset != before;
}

bool UI_ScrollView::UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) {
  if (!event.IsAction(ui::KeyAction::kKeyDown) || !event.GetModKey().IsEmpty()) {
    return UI_SubView::UI_DoKeyboardEvent(node, event);
  }
  if (mFocusVisibility.KeyUsed()) {
    UI_Invalidate();
  }
  RectT<float> const viewed = GetViewedRect();
  float const page = std::max(viewed.height - kLineStep, kLineStep);
  PointT<float> target = mOffset;
  switch (event.GetCode()) {
    case ui::KeyboardCode::kUp:
      target.y -= kLineStep;
      break;
    case ui::KeyboardCode::kDown:
      target.y += kLineStep;
      break;
    case ui::KeyboardCode::kLeft:
      target.x -= kLineStep;
      break;
    case ui::KeyboardCode::kRight:
      target.x += kLineStep;
      break;
    case ui::KeyboardCode::kPageUp:
      target.y -= page;
      break;
    case ui::KeyboardCode::kPageDown:
      target.y += page;
      break;
    case ui::KeyboardCode::kHome:
      target.y = 0.0f;
      break;
    case ui::KeyboardCode::kEnd:
      target.y = mContentView->UI_GetLocalRectF(ui::RectSpace::kOwn).height;
      break;
    default:
      return UI_SubView::UI_DoKeyboardEvent(node, event);
  }
  PointT<float> const before = mOffset;
  ScrollTo(target);
  return mOffset != before || UI_SubView::UI_DoKeyboardEvent(node, event);
}

bool UI_ScrollView::UI_WantsKeyboardFocus() const {
  bool const canScroll = (mBarX && mBarX->IsNeeded()) || (mBarY && mBarY->IsNeeded());
  return canScroll && !HasStop(*mContentView);
}

void UI_ScrollView::UI_FocusChanged(ui::FocusChangeReason reason) {
  UI_SubView::UI_FocusChanged(reason);
  mFocusVisibility.FocusChanged(reason);
  UI_Invalidate();
}

bool UI_ScrollView::UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) {
  // A press that nobody inside has used makes the keys scroll here.
  if (event.IsAction(ui::PointerAction::kPress) && !UI_IsDisabled() && UI_WantsKeyboardFocus()) {
    UI_GainKeyboardFocus(ui::FocusChangeReason::kPointer);
  }
  return UI_SubView::UI_DoMouseEvent(node, event);
}

void UI_ScrollView::UI_Draw(scriber::Scriber* scriber) const {
  UI_SubView::UI_Draw(scriber);
  if (mFocusVisibility.ShowsRing() && UI_HasKeyboardFocus(true)) {
    // Inside, since the view often fills one that clips.
    RectT<float> const rect = UI_GetLocalRectF(ui::RectSpace::kOwn).Inset(skins::kFocusRingReach);
    skins::DrawFocusRing(scriber, rect, 0.0f, GetColor(ui::ThemeColorID::kFocus));
  }
}

void UI_ScrollView::SetAccessibleName(moxcore::Utf8String name) {
  if (name != mAccessibleName) {
    mAccessibleName = std::move(name);
    UI_TellAccessibleChange(ui::AccessibleChange::kName);
  }
}

ui::AccessibleRole UI_ScrollView::UI_GetAccessibleRole() const {
  return ui::AccessibleRole::kGroup;
}

moxcore::Utf8String UI_ScrollView::UI_GetAccessibleName() const {
  if (!mAccessibleName.empty()) {
    return mAccessibleName;
  }
  return moxcore::string::UTF16to8(
      moxcore::config::Localizer::Get().GetUTF16String("$$$/moxui/ScrollView/Name=Scroll area"));
}

void UI_ScrollView::UI_RevealDescendant(ui::UI_Node const& node) {
  if (node.UI_IsSelfOrDescendantOf(mContentView.Get())) {
    ScrollIntoView(node.UI_ConvertRectTo(mContentView.Get(), node.UI_GetLocalRectF(ui::RectSpace::kOwn)),
                   false);
  }
}

}  // namespace moxui::controls
