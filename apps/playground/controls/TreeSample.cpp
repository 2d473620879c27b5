#include "controls/TreeSample.h"

#include "program/Localized.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_MultiColumnTree.h>
#include <moxui/controls/UI_MultiColumnTreeHeaderRow.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_MultiColumnTree;
using moxui::controls::UI_MultiColumnTreeHeaderRow;
using moxui::controls::UI_Popup;
using Row = moxui::controls::UI_MultiColumnTreeRow;

constexpr std::int64_t kTakes = 100000;

// A frame around a tree, which has the tree's value as its own.
class TreeFrame : public UI_ControlView {
 public:
  TreeFrame() {
    mTree->SetRowsSelectionChangedCallback([this](auto const&) { SendValueChangedMessage(); });
    ChildPushBack(mTree);
  }

  UI_MultiColumnTree& Tree() { return *mTree; }

  UI_MultiColumnTreeHeaderRow& AddHeader(std::initializer_list<std::pair<std::string_view, float>> columns) {
    mTree->SetNumberOfColumns(static_cast<int>(columns.size()));
    auto const header = MakeIntrusive<UI_MultiColumnTreeHeaderRow>(mTree.Get());
    int column = 0;
    for (auto const& [name, width] : columns) {
      header->SetColumnName(column, Text16(name));
      header->SetColumnWidth(column++, width);
    }
    return *header;
  }

  void UI_SizeChanged(RectT<float> const& rect) override {
    UI_ControlView::UI_SizeChanged(rect);
    mTree->UI_SetLocalRectF(rect.Inset(1.0f));
  }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override {
    UI_ControlView::UI_Draw(scriber);
    moxui::utils::DrawOutline(scriber, UI_GetLocalRectF(false).Inset(0.5f),
                              ThemeColor(moxui::ui::ThemeColorID::kFieldOutline), 1.0f);
  }

  moxcore::Utf8String UI_GetAccessibleValue() const override { return mTree->UI_GetAccessibleValue(); }

 private:
  IntrusivePtr<UI_MultiColumnTree> mTree = MakeIntrusive<UI_MultiColumnTree>();
};

// Minutes, seconds and frames of a take that is made up from its number.
moxcore::Utf16String LengthOf(std::int64_t take) {
  std::int64_t const frames = take * 7919 % 9000 + 25;
  char text[16];
  std::snprintf(text, sizeof(text), "%02d:%02d:%02d", static_cast<int>(frames / 1500),
                static_cast<int>(frames / 25 % 60), static_cast<int>(frames % 25));
  return To16(text);
}

IntrusivePtr<TreeFrame> Takes() {
  auto frame = MakeIntrusive<TreeFrame>();
  UI_MultiColumnTree& tree = frame->Tree();
  tree.SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/takes=Takes")));
  tree.SetAllowChildren(false);
  tree.SetSupportMultipleSelections(true);
  UI_MultiColumnTreeHeaderRow& header = frame->AddHeader(
      {{"$$$/playground/sample/takeName=Take", 150.0f}, {"$$$/playground/sample/takeLength=Length", 90.0f}});
  header.SetSortColumn(0, true);
  auto const isUp = std::make_shared<bool>(true);
  tree.SetCellTextCallback([&tree, isUp](Row* row, int column) {
    std::int64_t const index = tree.GetRowIndex(row);
    std::int64_t const take = *isUp ? index + 1 : kTakes - index;
    return column == 0 ? Text16("$$$/playground/sample/take=Take @0", {std::to_string(take)})
                       : LengthOf(take);
  });
  // Only the numbers have an order that is known beforehand.
  header.SetSortChangedCallback([&tree, &header, isUp](int column, bool ascending) {
    if (column != 0) {
      header.SetSortColumn(0, *isUp);
      return;
    }
    *isUp = ascending;
    tree.UI_Invalidate();
  });
  for (std::int64_t take = 0; take < kTakes; ++take) {
    tree.CreateAndAppendRow();
  }
  tree.LayoutAfterAppendRow();
  tree.SelectRow(tree.GetRow(1).Get(), true, false, false);
  return frame;
}

void AddLabelPopup(UI_MultiColumnTree& tree, Row& row) {
  auto const cell = row.GetCellView(1);
  if (!tree.IsRowVisible(&row) || cell->ChildSize() > 0) {
    return;
  }
  auto popup = MakeIntrusive<UI_Popup>();
  for (std::string_view const item :
       {"$$$/playground/sample/channel/left=Left", "$$$/playground/sample/channel/right=Right",
        "$$$/playground/sample/channel/centre=Centre"}) {
    popup->AddItem(Text16(item));
  }
  popup->SetItemCheckStyle(moxui::controls::ItemCheckStyle::kCurrent);
  popup->SetValue(tree.GetRowIndex(&row) % 3);
  popup->SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/channelLabel=Label of channel @0",
                                                    {std::to_string(tree.GetRowIndex(&row) + 1)})));
  RectT<float> const own = cell->UI_GetLocalRectF(false);
  float const inset = moxui::skins::IsRunningV7OrBeyond() ? 2.0f : 0.0f;
  float const height = popup->UI_GetRecommendedSizeFromDefaultSupplier().height;
  popup->UI_SetLocalRectF({inset, (own.height - height) / 2.0f, own.width - 2.0f * inset, height});
  popup->UI_SetLayoutBinding(moxui::ui::LayoutBinding::kBindRight);
  cell->UI_SetLayoutsChildren(true);
  cell->ChildPushBack(popup);
}

IntrusivePtr<TreeFrame> Channels() {
  auto frame = MakeIntrusive<TreeFrame>();
  UI_MultiColumnTree& tree = frame->Tree();
  tree.SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/channels=Channels")));
  tree.SetAllowChildren(false);
  tree.SetSupportNoneSelected(false);
  UI_MultiColumnTreeHeaderRow& header =
      frame->AddHeader({{"$$$/playground/sample/channelNumber=Number", 80.0f},
                        {"$$$/playground/sample/channelName=Label", 160.0f}});
  header.ShowSortIndicator(false);
  header.SetAllowUserColumnMove(false);
  tree.SetCellTextCallback([&tree](Row* row, int column) {
    return column == 0 ? To16(std::to_string(tree.GetRowIndex(row) + 1)) : moxcore::Utf16String();
  });
  tree.SetRowVisibilityChangedCallback([&tree](Row* row) { AddLabelPopup(tree, *row); });
  for (int channel = 0; channel < 12; ++channel) {
    tree.CreateAndAppendRow();
  }
  tree.LayoutAfterAppendRow();
  return frame;
}

IntrusivePtr<TreeFrame> Bins() {
  auto frame = MakeIntrusive<TreeFrame>();
  UI_MultiColumnTree& tree = frame->Tree();
  tree.SetAccessibleName(moxcore::Utf8String(Text("$$$/playground/sample/bins=Bins")));
  tree.SetNumberOfColumns(1);
  tree.SetColumnWidth(0, 240.0f);
  tree.SetCellTextCallback(
      [](Row* row, int) { return std::any_cast<moxcore::Utf16String const&>(row->GetUserData()); });
  auto const add = [&tree](std::string_view text, Row* parent) {
    auto row = tree.CreateAndAppendRow(parent);
    row->SetUserData(Text16(text));
    return row;
  };
  auto const picture = add("$$$/playground/sample/bin/picture=Picture", nullptr);
  auto const scene = add("$$$/playground/sample/bin/scene=Scene 12", picture.Get());
  add("$$$/playground/sample/bin/wide=Wide shot", scene.Get());
  add("$$$/playground/sample/bin/close=Close-up", scene.Get());
  add("$$$/playground/sample/bin/titles=Titles", picture.Get());
  auto const sound = add("$$$/playground/sample/bin/sound=Sound", nullptr);
  add("$$$/playground/sample/bin/boom=Boom", sound.Get());
  add("$$$/playground/sample/bin/music=Music", nullptr);
  picture->SetOpened(true);
  scene->SetOpened(true);
  tree.LayoutAfterAppendRow();
  tree.SelectRow(scene.Get(), true, false, false);
  return frame;
}

}  // namespace

IntrusivePtr<UI_ControlView> TreeSample(TreeKind kind) {
  switch (kind) {
    case TreeKind::kTakes:
      return Takes();
    case TreeKind::kChannels:
      return Channels();
    case TreeKind::kBins:
      return Bins();
  }
  return nullptr;
}

}  // namespace playground
