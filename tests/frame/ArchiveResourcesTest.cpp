// The view archives among the library's resources: both variants of each, every section, every key.
#include "ArchiveNodes.h"

#include <moxcore/debug/Trace.h>
#include <moxui/ui/UI_NodeBuilder.h>
#include <moxui/ui/UI_SubView.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace moxmediaui {
namespace {

using ::testing::IsEmpty;
using Names = std::vector<std::string>;

Names SectionNames(Value const& node) {
  Names names;
  Value const& sections = *node.Find("sections");
  for (std::int64_t i = 0; i < sections.Find("count")->GetInteger(); ++i) {
    names.push_back(TextOf(*sections.Find("section-" + std::to_string(i)), "sectionName"));
  }
  return names;
}

// The classes of an adapter, from the most derived one to UI_Node.
Names ClassesOf(std::string const& adapter) {
  static std::map<std::string, Names> const own = {
      {"moxui::ui::UI_Node", {}},
      {"moxui::ui::UI_SubView", {"moxui::ui::UI_Node"}},
      {"moxui::ui::UI_LayoutView", {"moxui::ui::UI_SubView"}},
      {"moxui::controls::UI_OutlineBox", {"moxui::ui::UI_SubView"}},
      {"moxui::controls::UI_MultiColumnTree", {"moxui::ui::UI_SubView"}},
      {"moxui::controls::UI_ControlView", {"moxui::ui::UI_SubView"}},
      {"moxui::controls::UI_InteractiveControlView", {"moxui::controls::UI_ControlView"}},
      {"moxui::controls::UI_StaticText", {"moxui::controls::UI_ControlView"}},
      {"moxui::controls::UI_Button", {"moxui::controls::UI_InteractiveControlView"}},
      {"moxui::controls::UI_PictureButton", {"moxui::controls::UI_Button"}},
      {"moxui::controls::UI_TextButton", {"moxui::controls::UI_Button"}},
      {"moxui::controls::UI_Popup", {"moxui::controls::UI_Button"}},
      {"moxui::controls::UI_HotText", {"moxui::controls::UI_InteractiveControlView"}},
      {"moxui::controls::UI_HotTextNumber", {"moxui::controls::UI_HotText"}},
  };
  if (adapter == "PresetsView") {
    return {"moxui::ui::UI_SubView", "moxui::ui::UI_Node"};  // the client's own class has no section
  }
  Names names{adapter};
  while (!own.at(names.back()).empty()) {
    names.push_back(own.at(names.back()).front());
  }
  return names;
}

class Archives : public ArchiveTest, public ::testing::WithParamInterface<char const*> {
 protected:
  static std::string Bytes(bool isV7) { return ArchiveTest::Bytes(GetParam(), isV7); }
  static Value Root(bool isV7) { return ArchiveTest::Root(GetParam(), isV7); }
};

INSTANTIATE_TEST_SUITE_P(All, Archives,
                         ::testing::Values("PresetsView", "CurvePointEditDialog",
                                           "CustomAudioChannelLayoutDialog"),
                         [](::testing::TestParamInfo<char const*> const& one) { return one.param; });

TEST_P(Archives, BothVariantsHaveTheSameTreeIdsAndAdapters) {
  auto const outline = [](Value const& root) {
    std::vector<Names> nodes;
    Visit(root, "", [&](Value const& node, std::string const& place) {
      Value const& sections = *node.Find("sections");
      auto const count = sections.Find("count")->GetInteger();
      nodes.push_back({place, TextOf(node, "adapter"),
                       TextOf(*sections.Find("section-" + std::to_string(count - 1)), "id")});
    });
    return nodes;
  };
  EXPECT_NE(Bytes(false), Bytes(true));
  EXPECT_EQ(outline(Root(false)), outline(Root(true)));
}

TEST_P(Archives, EveryNodeHasTheSectionsOfItsClasses) {
  for (bool const isV7 : {false, true}) {
    Visit(Root(isV7), "", [&](Value const& node, std::string const& place) {
      EXPECT_EQ(SectionNames(node), ClassesOf(TextOf(node, "adapter"))) << place;
      auto const& last = node.Find("sections")->GetMembers().back().value;
      for (char const* const key : {"bounds", "id", "tooltip", "visible"}) {
        EXPECT_NE(last.Find(key), nullptr) << key << " at " << place;
      }
    });
  }
}

TEST_P(Archives, KeysOfTheNewerLookStandInItsVariantAlone) {
  std::set<std::string> const newer = {"chromeType",       "componentSize", "emphasized",  "fontSizeID",
                                       "isImageLoaded",    "quiet",         "staticColor", "showHoldIcon",
                                       "popupVariantType", "style",         "variant"};
  for (bool const isV7 : {false, true}) {
    Visit(Root(isV7), "", [&](Value const& node, std::string const& place) {
      for (auto const& section : node.Find("sections")->GetMembers()) {
        Value const* const fontSize = section.value.Find("fontSize");
        if (fontSize != nullptr) {
          EXPECT_EQ(fontSize->GetNumber(), isV7 ? 0.0 : 11.0) << place;
          EXPECT_EQ(section.value.Find("fontSizeID") != nullptr, isV7) << place;
        }
        for (auto const& member : section.value.GetMembers()) {
          EXPECT_TRUE(isV7 || !newer.contains(std::string(member.key))) << member.key << " at " << place;
        }
      }
    });
  }
}

TEST_P(Archives, EveryKeyMeansSomethingToItsClass) {
  using namespace moxcore::debug;
  Names lines;
  TraceSink const before = SetTraceSink(
      [&](TraceLevel, TraceCategory const&, std::string_view text) { lines.emplace_back(text); });
  EnableTrace(TraceCategory("moxui.archive"));
  for (bool const isV7 : {false, true}) {
    moxui::ui::UI_NodeBuilder(Bytes(isV7)).Build(nullptr, [](moxcore::Utf8String const& type) {
      EXPECT_EQ(std::string_view(type), "PresetsView");
      return moxcore::utility::MakeIntrusive<moxui::ui::UI_SubView>();
    });
  }
  ResetTrace(TraceCategory("moxui.archive"));
  SetTraceSink(before);
  EXPECT_THAT(lines, IsEmpty());
}

TEST_P(Archives, WhatIsWrittenReadsAsTheSame) {
  for (bool const isV7 : {false, true}) {
    Value const archive = moxui::archive::ReadArchive(Bytes(isV7));
    EXPECT_EQ(moxui::archive::ReadArchive(moxui::archive::WriteArchive(archive)), archive);
  }
}

}  // namespace
}  // namespace moxmediaui
