#include "properties/PropertyPanel.h"

#include "program/Localized.h"
#include "properties/PropertyRow.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_ScrollBar.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/scriber/Drawing.h>

#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_ScrollView;
using moxui::controls::UI_StaticText;
namespace ScrollViewStyle = moxui::controls::ScrollViewStyle;

constexpr float kHeadingHeight = 28.0f;
constexpr float kRowDistance = 4.0f;

bool IsHeading(moxui::ui::UI_Node const& line) {
  return dynamic_cast<UI_StaticText const*>(&line) != nullptr;
}

}  // namespace

PropertyPanel::PropertyPanel() {
  mContent = MakeIntrusive<moxui::ui::UI_SubView>();
  mScroll = MakeIntrusive<UI_ScrollView>(mContent,
                                         ScrollViewStyle::kFitContentWidth | ScrollViewStyle::kVerticalBar);
  ChildPushBack(mScroll);
}

PropertyPanel::~PropertyPanel() = default;

void PropertyPanel::SetGroups(std::vector<PropertyGroup> groups) {
  mContent->DeleteChildren();
  mRows.clear();
  mLines.clear();
  auto const change = [weak = moxcore::utility::RefCountedWeakPtr<PropertyPanel>(this)](
                          Property const& property, std::string const& value) {
    auto const panel = weak.Lock();
    if (panel && panel->mChange) {
      panel->mChange(property, value);
    }
  };
  for (PropertyGroup& group : groups) {
    auto heading = MakeIntrusive<UI_StaticText>(To16(group.title));
    heading->SetBold(true);
    heading->SetAlignment(Leading());
    mContent->ChildPushBack(heading);
    mLines.push_back(heading);
    for (Property& property : group.properties) {
      auto row = PropertyRow::Make(std::move(property), change);
      mContent->ChildPushBack(row);
      mRows.push_back(row);
      mLines.push_back(row);
    }
  }
  LayOut();
}

void PropertyPanel::Refresh() {
  for (auto const& row : mRows) {
    row->Refresh();
  }
}

PropertyRow* PropertyPanel::FindRow(std::string_view id) const {
  for (auto const& row : mRows) {
    if (row->GetProperty().id == id) {
      return row.Get();
    }
  }
  return nullptr;
}

float PropertyPanel::GetScrollOffset() const {
  return mScroll->GetViewedRect().top;
}

void PropertyPanel::SetScrollOffset(float offset) {
  mScroll->ScrollTo({0.0f, offset});
}

void PropertyPanel::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  float const width = own.width - 2.0f * kPanelPadding - moxui::controls::UI_ScrollBar::GetThickness();
  float const viewWidth = own.width - moxui::controls::UI_ScrollBar::GetThickness();
  float top = 0.0f;
  for (auto const& line : mLines) {
    bool const heading = IsHeading(*line);
    float const height = heading ? kHeadingHeight : ControlHeight();
    if (heading && top > 0.0f) {
      top += kGroupGap - kRowDistance;
    }
    line->UI_SetLocalRectF(Placed({kPanelPadding, top, width, height}, viewWidth));
    top += height + kRowDistance;
  }
  RectT<float> const extent{0.0f, 0.0f, viewWidth, top + kPanelPadding};
  mContent->UI_SetLocalRectF(extent);
  mScroll->SetContentRect(extent);
  mScroll->Update();
}

void PropertyPanel::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  moxui::utils::DrawRect(scriber, own, ThemeColor(moxui::ui::ThemeColorID::kGray2));
  moxui::utils::DrawRect(scriber, Placed({0.0f, 0.0f, 1.0f, own.height}, own.width),
                         ThemeColor(moxui::ui::ThemeColorID::kGray3));
  UI_SubView::UI_Draw(scriber);
}

void PropertyPanel::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  mScroll->UI_SetLocalRectF(rect);
  LayOut();
}

}  // namespace playground
