#include "channels/ChannelList.h"

#include "channels/LayoutTexts.h"
#include "program/Localized.h"
#include "shell/Painting.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::FontIndex;
using moxui::ui::ThemeColorID;

constexpr float kLineHeight = 18.0f;
constexpr float kNumberWidth = 28.0f;
constexpr float kNumberGap = 8.0f;
constexpr float kWidestColumn = 208.0f;
constexpr float kNarrowestColumn = 112.0f;

}  // namespace

ChannelList::ChannelList() = default;
ChannelList::~ChannelList() = default;

void ChannelList::SetLayout(moxmediatypes::AudioChannelLayout layout) {
  mLayout = std::move(layout);
  UI_Invalidate();
}

ChannelList::Grid ChannelList::LayOutGrid() const {
  RectT<float> const own = UI_GetLocalRectF(false);
  float const width = own.width - 2.0f * kPanelPadding;
  auto const atLeast = [](float value, float unit) {
    return static_cast<std::size_t>(std::max(value / unit, 0.0f));
  };
  Grid grid;
  grid.rows = atLeast(own.height, kLineHeight);
  if (grid.rows == 0 || mLayout.empty()) {
    return grid;
  }
  std::size_t const most = std::max<std::size_t>(atLeast(width, kNarrowestColumn), 1);
  grid.columns = std::min((mLayout.size() + grid.rows - 1) / grid.rows, most);
  grid.columnWidth = std::floor(std::clamp(width / static_cast<float>(grid.columns), 0.0f, kWidestColumn));
  return grid;
}

std::size_t ChannelList::CountNamed() const {
  std::size_t const places = LayOutGrid().Places();
  return mLayout.size() <= places ? mLayout.size() : std::max<std::size_t>(places, 1) - 1;
}

RectT<float> ChannelList::PlaceRect(Grid const& grid, std::size_t place) const {
  std::size_t const column = place / grid.rows;
  std::size_t const row = place % grid.rows;
  return {kPanelPadding + static_cast<float>(column) * grid.columnWidth,
          static_cast<float>(row) * kLineHeight, grid.columnWidth, kLineHeight};
}

void ChannelList::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  Grid const grid = LayOutGrid();
  if (grid.Places() == 0) {
    return;
  }
  std::size_t const named = CountNamed();
  for (std::size_t channel = 0; channel < named; ++channel) {
    RectT<float> const place = PlaceRect(grid, channel);
    DrawLabel(scriber, To16(std::to_string(channel + 1)),
              Placed({place.left, place.top, kNumberWidth, place.height}, own.width), Trailing(),
              FontIndex::kText, ThemeColor(ThemeColorID::kGray7));
    float const left = place.left + kNumberWidth + kNumberGap;
    DrawLabel(
        scriber, To16(ChannelText(mLayout, channel)),
        Placed({left, place.top, std::max(place.Right() - kNumberGap - left, 0.0f), place.height}, own.width),
        Leading(), FontIndex::kText, ThemeColor(ThemeColorID::kGray9));
  }
  if (named < mLayout.size()) {
    DrawLabel(scriber,
              Text16("$$$/playground/channels/more=and @0 more", {std::to_string(mLayout.size() - named)}),
              Placed(PlaceRect(grid, named), own.width), Leading(), FontIndex::kText,
              ThemeColor(ThemeColorID::kGray7));
  }
}

moxui::ui::AccessibleRole ChannelList::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kStaticText;
}

moxcore::Utf8String ChannelList::UI_GetAccessibleName() const {
  return moxcore::Utf8String(
      Text("$$$/playground/channels/list=Channels in their order (@0)", {ChannelCountText(mLayout.size())}));
}

moxcore::Utf8String ChannelList::UI_GetAccessibleValue() const {
  return moxcore::Utf8String(LayoutText(mLayout));
}

}  // namespace playground
