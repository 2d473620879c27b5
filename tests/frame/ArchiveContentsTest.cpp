// What stands in the view archives among the library's resources, node by node.
#include "ArchiveNodes.h"

#include <gmock/gmock.h>

#include <array>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace moxmediaui {
namespace {

using ::testing::UnorderedElementsAreArray;
using Place = std::array<double, 4>;  // left, top, width, height

/// A node by its place in the tree ("/0/2"), and what the classic and the newer variant say of it.
struct Described {
  std::string_view at;
  std::string_view id;
  Place classic;
  Place v7;
};

class ArchiveContents : public ArchiveTest {
 protected:
  static void ExpectPlaces(char const* name, std::vector<Described> const& expected) {
    for (bool const isV7 : {false, true}) {
      std::size_t count = 0;
      Visit(Root(name, isV7), "", [&](Value const& node, std::string const& at) {
        Value const& last = node.Find("sections")->GetMembers().back().value;
        ASSERT_LT(count, expected.size());
        Described const& one = expected[count++];
        EXPECT_EQ(at, one.at);
        EXPECT_EQ(TextOf(last, "id"), one.id) << at;
        Value const& bounds = *last.Find("bounds");
        Place const place = {bounds.Find("left")->GetNumber(), bounds.Find("top")->GetNumber(),
                             bounds.Find("width")->GetNumber(), bounds.Find("height")->GetNumber()};
        EXPECT_EQ(place, isV7 ? one.v7 : one.classic) << at;
        EXPECT_TRUE(last.Find("visible")->GetBoolean()) << at;
      });
      EXPECT_EQ(count, expected.size());
    }
  }

  /// A key of whichever section of the node has it; null for none.
  static Value Find(char const* name, bool isV7, std::string_view id, std::string_view key) {
    Value found;
    Visit(Root(name, isV7), "", [&](Value const& node, std::string const&) {
      auto const& sections = node.Find("sections")->GetMembers();
      if (TextOf(sections.back().value, "id") != id) {
        return;
      }
      for (auto const& section : sections) {
        if (Value const* const value = section.value.Find(key)) {
          found = *value;
        }
      }
    });
    return found;
  }
};

TEST_F(ArchiveContents, OfTheCurvePointDialogLieInTheirPlaces) {
  ExpectPlaces("CurvePointEditDialog", {{"", "", {0, 0, 197, 118}, {0, 0, 197, 118}},
                                        {"/0", "", {12, 14, 172, 83}, {12, 14, 172, 98}},
                                        {"/0/0", "", {0, 0, 88, 56}, {0, 0, 88, 55}},
                                        {"/0/0/0", "StaticText1", {0, 0, 80, 19}, {0, 0, 80, 24}},
                                        {"/0/0/1", "StaticText2", {0, 26, 80, 19}, {0, 31, 80, 24}},
                                        {"/0/1", "", {92, 0, 79, 56}, {92, 0, 79, 55}},
                                        {"/0/1/0", "Number1", {0, 0, 76, 19}, {0, 0, 76, 24}},
                                        {"/0/1/1", "Number2", {0, 26, 76, 19}, {0, 31, 76, 24}},
                                        {"/0/2", "", {0, 64, 172, 19}, {0, 74, 172, 24}},
                                        {"/0/2/0", "OKButton", {0, 0, 80, 19}, {0, 0, 80, 24}},
                                        {"/0/2/1", "CancelButton", {92, 0, 80, 19}, {92, 0, 80, 24}}});
}

TEST_F(ArchiveContents, OfTheLayoutDialogLieInTheirPlaces) {
  ExpectPlaces("CustomAudioChannelLayoutDialog",
               {{"", "UI_TransformSubView", {0, 0, 320, 325}, {0, 0, 320, 325}},
                {"/0", "", {8, 8, 304, 21}, {8, 8, 304, 24}},
                {"/0/0", "PresetLabelID", {0, 1, 30, 19}, {0, 1, 30, 20}},
                {"/0/1", "PresetsViewID", {35, 1, 269, 20}, {35, 0, 269, 24}},
                {"/1", "", {7, 40, 305, 228}, {7, 40, 305, 228}},
                {"/1/0", "", {0, 0, 305, 228}, {0, 0, 305, 228}},
                {"/1/0/0", "TreeID", {8, 8, 289, 188}, {8, 8, 289, 190}},
                {"/1/0/1", "", {0, 203, 305, 19}, {0, 204, 305, 24}},
                {"/1/0/1/0", "RemoveChannelButtonID", {250, 0, 19, 19}, {231, 0, 28, 24}},
                {"/1/0/1/1", "AddChannelButtonID", {276, 0, 19, 19}, {267, 0, 28, 24}},
                {"/2", "", {7, 290, 305, 19}, {7, 290, 305, 24}},
                {"/2/0", "OKButtonID", {136, 0, 80, 19}, {245, 0, 24, 24}},
                {"/2/1", "CancelButtonID", {221, 0, 80, 19}, {281, 0, 24, 24}}});
}

TEST_F(ArchiveContents, OfThePresetsViewLieInTheirPlaces) {
  ExpectPlaces("PresetsView", {{"", "", {0, 0, 254, 20}, {0, 0, 260, 24}},
                               {"/0", "PresetsPopupID", {0, 0, 200, 19}, {0, 0, 200, 24}},
                               {"/1", "SavePresetButtonID", {210, 0, 20, 20}, {208, 0, 24, 24}},
                               {"/2", "DeletePresetButtonID", {234, 0, 20, 20}, {236, 0, 24, 24}}});
}

TEST_F(ArchiveContents, HaveTheTextsOfTheirNodes) {
  struct Text {
    char const* archive;
    char const* id;
    char const* key;
    std::string_view text;
  };
  constexpr char const* kCurve = "CurvePointEditDialog";
  constexpr char const* kLayout = "CustomAudioChannelLayoutDialog";
  constexpr Text kTexts[] = {
      {kCurve, "StaticText1", "text", "This Is The First One"},
      {kCurve, "StaticText2", "text", "This Is The Second One"},
      {kCurve, "OKButton", "textLabel", "($$$/moxaudiofiltersui/CurvePointEditDialog/OK=OK)"},
      {kCurve, "CancelButton", "textLabel", "($$$/moxaudiofiltersui/CurvePointEditDialog/Cancel=Cancel)"},
      {kLayout, "PresetLabelID", "text", "($$$/CustomAudioChannelLayoutDialogXML/Preset=Preset:)"},
      {kLayout, "RemoveChannelButtonID", "textLabel", "($$$/CustomAudioChannelLayoutDialogXML/Minus=-)"},
      {kLayout, "RemoveChannelButtonID", "tooltip",
       "($$$/CustomAudioChannelLayoutDialogXML/RemoveButtonTT=Remove a Channel)"},
      {kLayout, "AddChannelButtonID", "textLabel", "($$$/CustomAudioChannelLayoutDialogXML/Plus=+)"},
      {kLayout, "AddChannelButtonID", "tooltip",
       "($$$/CustomAudioChannelLayoutDialogXML/AddButtonTT=Add a Channel)"},
      {kLayout, "OKButtonID", "textLabel", "($$$/CustomAudioChannelLayoutDialogXML/OK=OK)"},
      {kLayout, "CancelButtonID", "textLabel", "($$$/CustomAudioChannelLayoutDialogXML/Cancel=Cancel)"},
      {"PresetsView", "SavePresetButtonID", "imageName", "Save_Md"},
      {"PresetsView", "SavePresetButtonID", "tooltip",
       "($$$/CommonPresetText/SaveSettingsAsAPreset=Save settings as a preset)"},
      {"PresetsView", "DeletePresetButtonID", "imageName", "Delete_Md"},
      {"PresetsView", "DeletePresetButtonID", "tooltip", "($$$/CommonPresetText/DeletePreset=Delete preset)"},
  };
  for (Text const& text : kTexts) {
    for (bool const isV7 : {false, true}) {
      EXPECT_EQ(Find(text.archive, isV7, text.id, text.key),
                Value::OfWideText(moxcore::Utf8String(text.text)))
          << text.id << ' ' << text.key;
    }
  }
}

TEST_F(ArchiveContents, HaveTheKeysOfTheirVariantAndNoOthers) {
  std::set<std::string> const ofTheFormat = {"sectionName",
                                             "AutoLayout",
                                             "AutoLayout_Horizontal",
                                             "AutoLayout_MaintainMargins",
                                             "AutoLayout_ScaleChildren",
                                             "LayoutChildren",
                                             "Constraints",
                                             "children",
                                             "bounds",
                                             "id",
                                             "tooltip",
                                             "visible"};
  std::vector<std::string> const plain = {"alignment",
                                          "alwaysNotify",
                                          "changeFocusOnClick",
                                          "className",
                                          "cmdIncrement",
                                          "commitAppearance",
                                          "contentOffsetX",
                                          "contentOffsetY",
                                          "cornerRadius",
                                          "decimalPlaces",
                                          "defaultAppearance",
                                          "displayBorderAlways",
                                          "displayBorderNever",
                                          "downOffsetX",
                                          "downOffsetY",
                                          "downState",
                                          "drawDivider",
                                          "enabled",
                                          "fontSize",
                                          "formatAlwaysSign",
                                          "formatLeadingSpaces",
                                          "formatNoLocalization",
                                          "formatNoTrailingZeros",
                                          "formatNormal",
                                          "formatPadSign",
                                          "formatUseSeparator",
                                          "imageName",
                                          "increment",
                                          "maxValue",
                                          "minValue",
                                          "multiLine",
                                          "notificationOnMouseDown",
                                          "popupItems",
                                          "popupType",
                                          "shiftIncrement",
                                          "springLoaded",
                                          "strokeSize1",
                                          "strokeSize2",
                                          "suppressFocusDrawing",
                                          "text",
                                          "textAlignment",
                                          "textIndent",
                                          "textLabel",
                                          "textTruncation",
                                          "value",
                                          "wantsFocus"};
  std::vector<std::string> newer = plain;
  for (char const* const key :
       {"chromeType", "componentSize", "emphasized", "fontSizeID", "isImageLoaded", "numericInput",
        "popupVariantType", "quiet", "showHoldIcon", "staticColor", "style", "variant"}) {
    newer.emplace_back(key);
  }
  for (bool const isV7 : {false, true}) {
    std::set<std::string> keys;
    for (char const* const name : {"PresetsView", "CurvePointEditDialog", "CustomAudioChannelLayoutDialog"}) {
      Visit(Root(name, isV7), "", [&](Value const& node, std::string const&) {
        for (auto const& section : node.Find("sections")->GetMembers()) {
          for (auto const& member : section.value.GetMembers()) {
            if (!ofTheFormat.contains(std::string(member.key))) {
              keys.emplace(member.key);
            }
          }
        }
      });
    }
    EXPECT_THAT(keys, UnorderedElementsAreArray(isV7 ? newer : plain));
  }
}

}  // namespace
}  // namespace moxmediaui
