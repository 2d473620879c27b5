#pragma once

#include "PresetStore.h"

#include <moxcore/string/Encoding.h>
#include <moxmediaui/CustomAudioChannelLayoutDialog.h>
#include <moxmediaui/Module.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/skins/Look.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace layout_presets {

using moxcore::Utf16String;
using moxcore::utility::IntrusivePtr;
using moxui::RectT;
using moxui::controls::UI_MultiColumnTree;
using moxui::controls::UI_Popup;
using moxui::controls::UI_TextButton;
using moxui::testing::Stage;

inline moxmediatypes::AudioChannelLayout ChannelsOf(std::vector<std::uint32_t> const& labels) {
  return Layout(labels).channelLayout;
}

inline Utf16String LabelText(std::uint32_t label) {
  return moxcore::string::UTF8to16(moxmediatypes::AudioChannelLabelDescription(
      static_cast<moxmediatypes::AudioChannelLabel>(label), false));
}

inline moxui::ui::UI_Node* FindNode(moxui::ui::UI_Node& node, std::string_view id) {
  if (node.UI_GetNodeID() == id) {
    return &node;
  }
  moxui::ui::UI_Container const* const container = node.UI_GetContainer();
  for (std::size_t i = 0; container != nullptr && i < container->ChildSize(); ++i) {
    if (moxui::ui::UI_Node* const found = FindNode(*container->ChildGet(i), id)) {
      return found;
    }
  }
  return nullptr;
}

/// The open editor as its user sees it.
class OpenEditor {
 public:
  explicit OpenEditor(Stage& box) : stage(box) { stage.PaintFrame(); }

  template <class Node>
  Node& Get(std::string_view id) const {
    return dynamic_cast<Node&>(*FindNode(stage.GetRootView(), id));
  }
  UI_MultiColumnTree& Tree() const { return Get<UI_MultiColumnTree>("TreeID"); }
  UI_TextButton& Button(std::string_view id) const { return Get<UI_TextButton>(id); }
  UI_Popup& Presets() const { return Get<UI_Popup>("PresetsPopupID"); }
  /// Null for a row that was never seen.
  UI_Popup* Popup(std::int64_t row) const {
    auto const treeRow = Tree().GetRow(row);
    auto const cell = treeRow->HasCellViews() ? treeRow->GetCellView(1) : nullptr;
    return cell ? dynamic_cast<UI_Popup*>(cell->ChildGet(0).Get()) : nullptr;
  }
  std::vector<Utf16String> Labels() const {
    std::vector<Utf16String> texts;
    for (std::int64_t row = 0; row < static_cast<std::int64_t>(Tree().CountRows()); ++row) {
      texts.push_back(Popup(row) != nullptr ? Popup(row)->GetShownText() : u"?");
    }
    return texts;
  }
  std::vector<std::int64_t> Selected() const {
    std::vector<std::int64_t> rows;
    for (auto const& row : Tree().GetSelectedRows()) {
      rows.push_back(Tree().GetRowIndex(row.Get()));
    }
    return rows;
  }
  void Press(std::string_view id) {
    stage.Click(stage.CenterOf(*FindNode(stage.GetRootView(), id)));
    stage.PaintFrame();
  }
  void PressNumber(std::int64_t row) {
    auto const cell = Tree().GetRow(row)->GetCellView(0);
    stage.Click(stage.CenterOf(*cell));
    stage.PaintFrame();
  }
  /// What it opens is answered by the test's ModalAnswers.
  void OpenPopup(std::int64_t row) {
    stage.Click(stage.CenterOf(*Popup(row)));
    stage.PaintFrame();
  }

  Stage& stage;
};

/// A store of presets, the library started, and boxes answered.
class LayoutEditorTest : public ::testing::Test {
 protected:
  LayoutEditorTest() { moxmediaui::Initialize(moxui::scriber::GetRasterSupplier()); }
  ~LayoutEditorTest() override {
    mDialog.Reset();
    moxmediaui::Terminate();
    moxui::skins::SetRunningV7OrBeyond(true);
  }

  using Dialog = moxmediaui::channelconfig::CustomAudioChannelLayoutDialog;

  std::shared_ptr<LayoutCache> const& Cache() {
    if (!mCache) {
      mCache = mStore.Open();
    }
    return mCache;
  }
  void Make(std::string_view guid) {
    mDialog = moxcore::utility::MakeIntrusive<Dialog>(Cache(), mValid, GuidOf(guid));
  }
  /// Opens the editor from a preset and drives it.
  void Run(std::string_view guid, std::function<void(OpenEditor&)> drive) {
    Make(guid);
    mAnswers.ExpectDriven([drive = std::move(drive)](Stage& stage) {
      OpenEditor editor(stage);
      drive(editor);
    });
    for (auto& answer : std::exchange(mThen, {})) {
      answer();
    }
    mDialog->RunDialog();
  }
  /// What answers the boxes that open from the editor, in their order.
  void ThenChoose(Utf16String item) {
    mThen.push_back([this, item = std::move(item)] { mAnswers.ExpectItem(item); });
  }
  void ThenDrive(std::function<void(Stage&)> drive) {
    mThen.push_back([this, drive = std::move(drive)] { mAnswers.ExpectDriven(drive); });
  }
  std::size_t CountBoxes() const {
    return static_cast<std::size_t>(std::ranges::count_if(mAnswers.GetRecords(), [](auto const& record) {
      return record.kind != moxui::platform::ModalKind::kMenu;
    }));
  }

  PresetStore mStore;
  std::shared_ptr<LayoutCache> mCache;
  std::set<moxmediatypes::AudioChannelDescription> mValid =
      moxmediatypes::GetSupportedAudioChannelDescriptions();
  moxui::testing::ModalAnswers mAnswers;
  std::vector<std::function<void()>> mThen;
  IntrusivePtr<Dialog> mDialog;
};

}  // namespace layout_presets
