#include "../controls/RunningLook.h"
#include "../resources/MapResources.h"
#include "MadeUpArchive.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Errors.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/debug/Trace.h>
#include <moxcore/utility/PointerCasts.h>
#include <moxui/controls/UI_HotTextNumber.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/AutoLayout.h>
#include <moxui/ui/UI_NodeBuilder.h>
#include <moxui/ui/UI_SubView.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace moxui::ui {
namespace {

using moxcore::Utf8String;
using moxcore::utility::DynamicCast;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::Bounds;
using testing::Children;
using testing::Choice;
using testing::Constraints;
using testing::DocumentOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::List;
using testing::MadeUpSection;
using testing::Narrow;
using testing::NodeOf;
using testing::Pair;
using testing::Real;
using testing::Signed;
using testing::SubViewOf;
using testing::Unsigned;
using testing::Wide;

// Counts those that live.
class CountedView : public UI_SubView {
 public:
  CountedView() { ++alive; }
  ~CountedView() override { --alive; }
  static inline int alive = 0;
};

IntrusivePtr<UI_Node> CountedOnly(Utf8String const& type) {
  return type == "test::Counted" ? MakeIntrusive<CountedView>() : IntrusivePtr<CountedView>();
}

UI_NodeBuilder::Tree Build(std::string const& root) {
  return UI_NodeBuilder(DocumentOf(root)).Build(nullptr, CountedOnly);
}

std::string ErrorOf(std::string const& root) {
  try {
    Build(root);
  } catch (moxcore::config::mox_exception const& error) {
    return error.what();
  }
  return "no error";
}

std::string ControlOf(std::string const& name, std::string const& pairs, std::string const& controlPairs = {},
                      std::string const& buttonPairs = {}) {
  return NodeOf("moxui::controls::" + name, {{"moxui::controls::" + name, pairs},
                                             {"moxui::controls::UI_Button", buttonPairs},
                                             {"moxui::controls::UI_InteractiveControlView"},
                                             {"moxui::controls::UI_ControlView", controlPairs},
                                             {"moxui::ui::UI_SubView"},
                                             {"moxui::ui::UI_Node", Bounds("0", "0", "80", "20")}});
}

template <class Control>
IntrusivePtr<Control> BuildControl(std::string const& root) {
  return moxcore::utility::CheckedCast<Control>(Build(root).root);
}

TEST(NodeBuilder, MakesATreeWithBoundsAndIds) {
  auto const tree = Build(SubViewOf(
      Pair("LayoutChildren", "<true/>") + Constraints("12") +
          Children(
              {SubViewOf(Constraints("5"), Bounds("100.5", "0", "20", "20") + Pair("id", Narrow("second"))),
               NodeOf("moxui::ui::UI_Node",
                      {{"moxui::ui::UI_Node", Bounds("0", "0", "1", "1") + Pair("visible", "<false/>")}})}),
      Bounds("3", "4", "200", "100") + Pair("id", Narrow("first")) + Pair("tooltip", Wide("A tip"))));
  auto const root = DynamicCast<UI_SubView>(tree.root);
  ASSERT_TRUE(root);
  EXPECT_EQ(root->UI_GetLocalRectF(RectSpace::kParent), RectT<float>(3, 4, 200, 100));
  EXPECT_EQ(root->UI_GetNodeID(), "first");
  EXPECT_EQ(root->UI_GetToolTip(), "A tip");
  EXPECT_EQ(root->UI_GetLayoutBinding(), 12u);
  ASSERT_EQ(root->ChildSize(), 2u);
  EXPECT_EQ(root->ChildGet(0)->UI_GetLocalRectF(RectSpace::kParent), RectT<float>(100.5f, 0, 20, 20));
  EXPECT_FALSE(root->ChildGet(1)->UI_IsShown());
  ASSERT_EQ(tree.nodes.size(), 2u);
  EXPECT_EQ(tree.nodes.at("first"), tree.root);
  EXPECT_EQ(tree.nodes.at("second"), root->ChildGet(0));

  root->UI_SetLocalRectF({0, 0, 250, 100});
  EXPECT_EQ(root->ChildGet(0)->UI_GetLocalRectF(RectSpace::kParent), RectT<float>(150.5f, 0, 20, 20));
}

TEST(NodeBuilder, ToolTipsWaitAsLongAsTheLookHasThem) {
  std::string const root = SubViewOf("", Pair("tooltip", Wide("A tip")));
  {
    testing::RunningLook const v7(true);
    EXPECT_EQ(Build(root).root->UI_GetToolTipDelay(), 200);
  }
  testing::RunningLook const classic(false);
  EXPECT_EQ(Build(root).root->UI_GetToolTipDelay(), 400);
}

TEST(NodeBuilder, ChildrenStandInTheOrderOfTheirNumbers) {
  std::string children;
  for (char const* const number : {"10", "2", "0"}) {
    children += Pair(std::string("child-") + number, SubViewOf("", Pair("id", Narrow(number))));
  }
  auto const tree = Build(SubViewOf(Pair("children", List(children)), ""));
  std::vector<Utf8String> ids;
  auto const view = DynamicCast<UI_SubView>(tree.root);
  for (auto child = view->ChildBegin(); child != view->ChildEnd(); ++child) {
    ids.push_back((*child)->UI_GetNodeID());
  }
  EXPECT_THAT(ids, ElementsAre("0", "2", "10"));
}

TEST(NodeBuilder, AutoLayoutIsSetFlagByFlag) {
  auto const view = DynamicCast<UI_SubView>(
      Build(SubViewOf(Pair("AutoLayout", "<true/>") + Pair("AutoLayout_Horizontal", "<false/>") +
                          Pair("AutoLayout_MaintainMargins", "<false/>") +
                          Pair("AutoLayout_ScaleChildren", "<true/>"),
                      ""))
          .root);
  AutoLayoutFlags const flags = GetAutoLayoutFlags(*view);
  EXPECT_TRUE(flags.isOn);
  EXPECT_FALSE(flags.isHorizontal);
  EXPECT_FALSE(flags.maintainsMargins);
  EXPECT_TRUE(flags.scalesChildren);
}

TEST(NodeBuilder, ReadsTheSectionsOfATextButton) {
  auto const button = BuildControl<controls::UI_TextButton>(ControlOf(
      "UI_TextButton", Pair("textLabel", Wide("Go")) + Pair("fontSize", Real("11")),
      Pair("enabled", "<false/>") + Pair("wantsFocus", "<false/>") + Pair("value", "<true/>") +
          Pair("componentSize", Choice("3")),
      Pair("defaultAppearance", "<true/>") + Pair("commitAppearance", "<true/>") +
          Pair("emphasized", "<true/>") + Pair("quiet", "<true/>") + Pair("showHoldIcon", "<true/>") +
          Pair("variant", Choice("2")) + Pair("displayBorderAlways", "<false/>") +
          Pair("contentOffsetX", Real("1")) + Pair("contentOffsetY", Real("-1")) +
          Pair("downOffsetX", Real("2")) + Pair("downOffsetY", Real("3")) + Pair("downState", "<true/>") +
          Pair("strokeSize1", Real("4")) + Pair("strokeSize2", Real("5")) + Pair("springLoaded", "<true/>")));
  EXPECT_EQ(button->GetTextLabel(), u"Go");
  EXPECT_TRUE(button->IsDisabled());
  EXPECT_FALSE(button->UI_WantsKeyboardFocus());
  EXPECT_TRUE(button->GetValue());
  EXPECT_EQ(button->GetComponents().GetComponentSize(), controls::ComponentSize::kLarge);
  EXPECT_TRUE(button->GetDefaultAppearance());
  EXPECT_TRUE(button->GetCommitAppearance());
  EXPECT_TRUE(button->GetComponents().IsEmphasized());
  EXPECT_TRUE(button->GetComponents().IsQuiet());
  EXPECT_TRUE(button->GetComponents().ShowsHoldIcon());
  EXPECT_EQ(button->GetComponents().GetVariant(), controls::ButtonVariant::kSecondary);
  EXPECT_FALSE(button->ShouldDisplayBorderAlways());
  EXPECT_EQ(button->GetContentOffset(), PointT<float>(1, -1));
  EXPECT_EQ(button->GetDownOffset(), PointT<float>(2, 3));
  EXPECT_TRUE(button->IsDown());
  EXPECT_EQ(button->GetStrokeSizes(), (std::pair(4.0f, 5.0f)));
  EXPECT_TRUE(button->IsSpringLoaded());
}

TEST(NodeBuilder, ReadsTheSectionsOfAPopup) {
  auto const popup = BuildControl<controls::UI_Popup>(
      ControlOf("UI_Popup",
                Pair("popupItems",
                     "<array><array.type>ustring</array.type><ustring>One</ustring><ustring/>"
                     "<ustring>Two</ustring></array>") +
                    Pair("drawDivider", "<true/>") + Pair("popupType", Choice("0")),
                Pair("value", Signed("2"))));
  ASSERT_EQ(popup->GetItems().size(), 3u);
  EXPECT_TRUE(popup->GetItems()[1].isSeparator);
  EXPECT_EQ(popup->GetValue(), 2);
  EXPECT_EQ(popup->GetShownText(), u"Two");
}

TEST(NodeBuilder, ReadsTheSectionsOfAPictureButton) {
  auto const button = BuildControl<controls::UI_PictureButton>(
      ControlOf("UI_PictureButton", Pair("imageName", Wide("Save_Md")) + Pair("isImageLoaded", "<false/>")));
  EXPECT_EQ(button->GetImageName(), "Save_Md");
}

TEST(NodeBuilder, ReadsTheSectionsOfAHotTextNumber) {
  auto const real = [](char const* number) { return std::string("<double>") + number + "</double>"; };
  auto const node = NodeOf(
      "moxui::controls::UI_HotTextNumber",
      {{"moxui::controls::UI_HotTextNumber",
        Pair("minValue", real("-10")) + Pair("maxValue", real("200")) + Pair("increment", real("2")) +
            Pair("shiftIncrement", real("20")) + Pair("cmdIncrement", real("0.5")) +
            Pair("decimalPlaces", Signed("1")) + Pair("formatAlwaysSign", "<true/>") +
            Pair("formatPadSign", "<true/>") + Pair("formatLeadingSpaces", "<true/>") +
            Pair("formatNoLocalization", "<true/>") + Pair("formatNoTrailingZeros", "<true/>") +
            Pair("formatUseSeparator", "<true/>") + Pair("formatNormal", "<true/>") +
            Pair("numericInput", "<true/>")},
       {"moxui::controls::UI_HotText", Pair("textLabel", Wide("px")) + Pair("fontSize", Real("11"))},
       {"moxui::controls::UI_ControlView", Pair("value", real("7.25")) + Pair("wantsFocus", "<true/>")}});
  auto const number = BuildControl<controls::UI_HotTextNumber>(node);
  EXPECT_EQ(number->GetValue(), 7.25);
  EXPECT_EQ(number->GetMinValue(), -10);
  EXPECT_EQ(number->GetMaxValue(), 200);
  EXPECT_EQ(number->GetIncrement(), 2);
  EXPECT_EQ(number->GetShiftIncrement(), 20);
  EXPECT_EQ(number->GetCmdIncrement(), 0.5);
  EXPECT_EQ(number->GetFormat(), (controls::NumberFormat{.decimalPlaces = 1,
                                                         .normal = true,
                                                         .alwaysSign = true,
                                                         .padSign = true,
                                                         .leadingSpaces = true,
                                                         .noTrailingZeros = true,
                                                         .useSeparator = true,
                                                         .noLocalization = true}));
  EXPECT_TRUE(number->GetNumericInput());
  EXPECT_EQ(number->GetTextLabel(), u"px");
  EXPECT_TRUE(number->UI_WantsKeyboardFocus());
}

TEST(NodeBuilder, ReadsTheSectionsOfAHotText) {
  auto const text = BuildControl<controls::UI_HotText>(
      NodeOf("moxui::controls::UI_HotText", {{"moxui::controls::UI_HotText", Pair("text", Wide("Title"))}}));
  EXPECT_EQ(text->GetText(), u"Title");
}

TEST(NodeBuilder, ReadsTheSectionsOfAStaticText) {
  auto const text = BuildControl<controls::UI_StaticText>(
      ControlOf("UI_StaticText", Pair("text", Wide("Hello")) + Pair("alignment", Choice("2"))));
  EXPECT_EQ(text->GetValue(), u"Hello");
  EXPECT_EQ(text->GetAlignment(), controls::ControlAlignment::kRight);
}

TEST(NodeBuilder, AnEnumerationMayBeARealThatIsWhole) {
  auto const alignmentOf = [](char const* number) {
    std::string const choice = List(Pair(".aptype", Signed("2")) + Pair("selected", Real(number)));
    return BuildControl<controls::UI_StaticText>(ControlOf("UI_StaticText", Pair("alignment", choice)))
        ->GetAlignment();
  };
  EXPECT_EQ(alignmentOf("2"), controls::ControlAlignment::kRight);
  EXPECT_THROW(alignmentOf("1.5"), moxcore::config::mox_exception);
}

TEST(NodeBuilder, AlignmentsChangePlacesWhereTheInterfaceRunsFromRightToLeft) {
  skins::SetRightToLeft(true);
  auto const text =
      BuildControl<controls::UI_StaticText>(ControlOf("UI_StaticText", Pair("alignment", Choice("2"))));
  skins::SetRightToLeft(false);
  EXPECT_EQ(text->GetAlignment(), controls::ControlAlignment::kLeft);
}

// A label with a button behind it and another one at the far edge.
std::string RowOfThree() {
  auto const button = [](char const* id, char const* left, char const* bits) {
    return NodeOf("moxui::controls::UI_TextButton",
                  {{"moxui::ui::UI_SubView", Constraints(bits)},
                   {"moxui::ui::UI_Node", Bounds(left, "0", "40", "20") + Pair("id", Narrow(id))}});
  };
  std::string const label =
      NodeOf("moxui::controls::UI_StaticText",
             {{"moxui::controls::UI_StaticText", Pair("text", Wide("A text of many words"))},
              {"moxui::ui::UI_Node", Bounds("0", "0", "20", "20") + Pair("id", Narrow("label"))}});
  return SubViewOf(Pair("AutoLayout", "<true/>") + Pair("LayoutChildren", "<true/>") +
                       Children({label, button("near", "24", "0"), button("far", "160", "5")}),
                   Bounds("0", "0", "200", "20"));
}

TEST(NodeBuilder, TheTreeIsMirroredWhereTheInterfaceRunsFromRightToLeft) {
  skins::SetRightToLeft(true);
  auto const tree = Build(RowOfThree());
  auto const placeOf = [&](char const* id) {
    return tree.nodes.at(id)->UI_GetLocalRectF(RectSpace::kParent);
  };
  EXPECT_EQ(placeOf("label"), RectT<float>(180, 0, 20, 20));
  EXPECT_EQ(placeOf("near"), RectT<float>(136, 0, 40, 20));
  EXPECT_EQ(placeOf("far"), RectT<float>(0, 0, 40, 20));
  tree.root->UI_SetLocalRectF({0, 0, 250, 20});
  EXPECT_EQ(placeOf("near"), RectT<float>(186, 0, 40, 20));
  EXPECT_EQ(placeOf("far"), RectT<float>(0, 0, 40, 20));
  skins::SetRightToLeft(false);
}

TEST(NodeBuilder, TextsOfAMirroredTreeGrowToTheLeft) {
  auto const surface = scriber::GetRasterSupplier()->NewOffscreenSurface(1, 1, 1);
  scriber::Scriber scratch(scriber::GetRasterSupplier(), surface.Get());
  auto const plain = Build(RowOfThree());
  AutoLayoutSubView(DynamicCast<UI_SubView>(plain.root).Get(), &scratch);
  skins::SetRightToLeft(true);
  auto const mirrored = Build(RowOfThree());
  AutoLayoutSubView(DynamicCast<UI_SubView>(mirrored.root).Get(), &scratch);
  skins::SetRightToLeft(false);
  float const width = plain.root->UI_GetLocalRectF(RectSpace::kOwn).width;
  EXPECT_GT(width, 250);
  EXPECT_EQ(mirrored.root->UI_GetLocalRectF(RectSpace::kOwn).width, width);
  for (char const* const id : {"label", "near", "far"}) {
    RectT<float> const place = plain.nodes.at(id)->UI_GetLocalRectF(RectSpace::kParent);
    EXPECT_EQ(mirrored.nodes.at(id)->UI_GetLocalRectF(RectSpace::kParent),
              RectT<float>(width - place.Right(), place.top, place.width, place.height))
        << id;
    EXPECT_EQ(mirrored.nodes.at(id)->UI_GetLayoutBinding(), std::string(id) == "far" ? 0u : 5u) << id;
  }
}

TEST(NodeBuilder, LiteralsInRoundBracketsAreLookedUp) {
  auto& localizer = moxcore::config::Localizer::Get();
  localizer.AddCatalogue(
      moxcore::config::ParseCatalogue("msgid \"\"\nmsgstr \"\"\n\"Language: xx\\n\"\n\nmsgctxt "
                                      "\"$$$/test/Go\"\nmsgid \"Go\"\nmsgstr \"Los\"\n"));
  auto const labelOf = [](std::string const& text) {
    return BuildControl<controls::UI_TextButton>(ControlOf("UI_TextButton", Pair("textLabel", Wide(text))))
        ->GetTextLabel();
  };
  EXPECT_EQ(labelOf("($$$/test/Go=Go)"), u"Go");
  EXPECT_EQ(labelOf("(Custom)"), u"(Custom)");
  localizer.SetLanguage("xx");
  EXPECT_EQ(labelOf("($$$/test/Go=Go)"), u"Los");
  localizer.SetLanguage("");
}

TEST(NodeBuilder, UnknownAdaptersGoToTheFactory) {
  auto const tree = Build(NodeOf("test::Counted", {{"moxui::ui::UI_SubView", Constraints("4")},
                                                   {"moxui::ui::UI_Node", Bounds("1", "2", "3", "4")}}));
  ASSERT_TRUE(DynamicCast<CountedView>(tree.root));
  EXPECT_EQ(tree.root->UI_GetLayoutBinding(), 4u);
  EXPECT_EQ(tree.root->UI_GetLocalRectF(RectSpace::kParent), RectT<float>(1, 2, 3, 4));
}

TEST(NodeBuilder, AClassNameStandsForTheAdapter) {
  auto const node =
      Build(NodeOf("moxui::controls::UI_ControlView",
                   {{"moxui::controls::UI_ControlView", Pair("className", Wide("test::Counted"))}}));
  EXPECT_TRUE(DynamicCast<CountedView>(node.root));
  auto const plain = Build(NodeOf("moxui::controls::UI_ControlView",
                                  {{"moxui::controls::UI_ControlView", Pair("className", Wide(""))}}));
  EXPECT_TRUE(DynamicCast<controls::UI_ControlView>(plain.root));
}

TEST(NodeBuilder, AnAdapterThatNobodyKnowsIsAnErrorThatNamesIt) {
  EXPECT_THAT(ErrorOf(NodeOf("test::Other", {})),
              ::testing::AllOf(HasSubstr("line 6"), HasSubstr("test::Other")));
  UI_NodeBuilder const builder(DocumentOf(NodeOf("test::Other", {})));
  EXPECT_THROW(builder.Build(nullptr), moxcore::config::mox_exception);
}

TEST(NodeBuilder, UnknownPropertiesAndSectionsAreTracedAndPassedOver) {
  using namespace moxcore::debug;
  std::vector<std::string> lines;
  TraceSink const before = SetTraceSink(
      [&](TraceLevel, TraceCategory const&, std::string_view text) { lines.emplace_back(text); });
  EnableTrace(TraceCategory("moxui.archive"));
  auto const tree =
      Build(NodeOf("moxui::ui::UI_SubView", {{"test::Derived", Pair("wings", Signed("2"))},
                                             {"moxui::ui::UI_Node", Pair("smell", Wide("rose"))}}));
  ResetTrace(TraceCategory("moxui.archive"));
  SetTraceSink(before);
  EXPECT_TRUE(tree.root);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_THAT(lines[0],
              ::testing::AllOf(HasSubstr("smell"), HasSubstr("moxui::ui::UI_Node"), HasSubstr("line")));
  EXPECT_THAT(lines[1], ::testing::AllOf(HasSubstr("wings"), HasSubstr("test::Derived")));
}

struct BadTree {
  std::string name;
  std::string root;
  std::string part;
};

class BadTrees : public ::testing::TestWithParam<BadTree> {};

// Every one has a living node when it fails.
TEST_P(BadTrees, AreToldOfWithTheirLineAndLeaveNoNode) {
  std::string const counted =
      NodeOf("test::Counted", {{"moxui::ui::UI_Node", Pair("id", Narrow("counted"))}});
  std::string const error =
      ErrorOf(SubViewOf(Children({counted, GetParam().root}), Pair("id", Narrow("root"))));
  EXPECT_THAT(error, HasSubstr("line "));
  EXPECT_THAT(error, HasSubstr(GetParam().part));
  EXPECT_EQ(CountedView::alive, 0);
}

INSTANTIATE_TEST_SUITE_P(
    All, BadTrees,
    ::testing::Values(
        BadTree{"TheSameIdTwice", SubViewOf("", Pair("id", Narrow("counted"))), "“counted”"},
        BadTree{"NoAdapter", List(Pair("sections", List(Pair("count", Unsigned("0"))))), "“adapter”"},
        BadTree{"NoSections", List(Pair("adapter", Wide("moxui::ui::UI_Node"))), "“sections”"},
        BadTree{"NoCount", List(Pair("adapter", Wide("moxui::ui::UI_Node")) + Pair("sections", List(""))),
                "“count”"},
        BadTree{"WrongCount",
                List(Pair("adapter", Wide("moxui::ui::UI_Node")) +
                     Pair("sections", List(Pair("count", Unsigned("1"))))),
                "sections"},
        BadTree{"AMissingSection",
                List(Pair("adapter", Wide("moxui::ui::UI_Node")) +
                     Pair("sections",
                          List(Pair("count", Unsigned("1")) +
                               Pair("section-1", List(Pair("sectionName", Wide("moxui::ui::UI_Node"))))))),
                "sections"},
        BadTree{"NamelessSection",
                List(Pair("adapter", Wide("moxui::ui::UI_Node")) +
                     Pair("sections", List(Pair("count", Unsigned("1")) + Pair("section-0", List(""))))),
                "“sectionName”"},
        BadTree{"BoundsWithoutTag", SubViewOf("", Pair("bounds", List(Pair("left", Real("0"))))), "“bounds”"},
        BadTree{"BoundsOfOtherTag",
                SubViewOf("", Pair("bounds", List(Pair(".aptype", Signed("2")) + Pair("left", Real("0")) +
                                                  Pair("top", Real("0")) + Pair("width", Real("0")) +
                                                  Pair("height", Real("0"))))),
                "“bounds”"},
        BadTree{"BoundsWithoutHeight",
                SubViewOf("", Pair("bounds", List(Pair(".aptype", Signed("1")) + Pair("left", Real("0")) +
                                                  Pair("top", Real("0")) + Pair("width", Real("0"))))),
                "“bounds”"},
        BadTree{"BoundsAreAText", SubViewOf("", Pair("bounds", Wide("0, 0, 10, 10"))), "“bounds”"},
        BadTree{"ConstraintsBelowZero",
                SubViewOf(Pair("Constraints",
                               List(Pair(".aptype", Signed("4")) + Pair("constraints", Signed("-1")))),
                          ""),
                "“Constraints”"},
        BadTree{"AnIdOfNumbers", SubViewOf("", Pair("id", Signed("1"))), "“id”"},
        BadTree{"UnknownChoice", ControlOf("UI_StaticText", Pair("alignment", Choice("3"))), "“alignment”"},
        BadTree{"NegativeChoice", ControlOf("UI_StaticText", Pair("alignment", Signed("-1"))), "“alignment”"},
        BadTree{"AHalfChoice", ControlOf("UI_StaticText", Pair("alignment", Real("0.5"))), "“alignment”"},
        BadTree{"TooManyPlaces",
                NodeOf("moxui::controls::UI_HotTextNumber",
                       {{"moxui::controls::UI_HotTextNumber", Pair("decimalPlaces", Signed("16"))}}),
                "“decimalPlaces”"},
        BadTree{"ATextForATruth", ControlOf("UI_TextButton", "", Pair("enabled", Wide("yes"))), "“enabled”"},
        BadTree{"ANumberForAText", ControlOf("UI_TextButton", Pair("textLabel", Signed("1"))), "“textLabel”"},
        BadTree{"ItemsThatAreNoList", ControlOf("UI_Popup", Pair("popupItems", Wide("One"))), "“popupItems”"},
        BadTree{"ASizeBeyondSinglePrecision",
                ControlOf("UI_TextButton", Pair("fontSize", "<double>1e300</double>")), "“fontSize”"},
        BadTree{"ChildrenOfANode",
                NodeOf("moxui::ui::UI_Node", {{"moxui::ui::UI_SubView", Children({SubViewOf("", "")})}}),
                "“children”"},
        BadTree{"AChildThatIsNoNode", SubViewOf(Pair("children", List(Pair("child-0", Wide("a")))), ""),
                "“sections”"}),
    [](::testing::TestParamInfo<BadTree> const& one) { return one.param.name; });

TEST(NodeBuilder, LevelsAreBounded) {
  auto const nested = [](int levels) {
    std::string node = SubViewOf("", "");
    for (int i = 1; i < levels; ++i) {
      node = SubViewOf(Children({node}), "");
    }
    return node;
  };
  EXPECT_EQ(ErrorOf(nested(120)), "no error");
  EXPECT_THAT(ErrorOf(nested(200)), HasSubstr("line "));
}

class NodeBuilderResources : public ::testing::Test {
 protected:
  IntrusivePtr<UI_Node> Load(moxcore::Utf16String const& name) {
    return UI_NodeBuilder::LoadViewFromXML(&mResources, nullptr, name, mNodes, CountedOnly);
  }

  MapResources mResources;
  NodeMap mNodes;
};

TEST_F(NodeBuilderResources, ANameIsFoundInAnyCase) {
  mResources.Add("XML", "VIEW", DocumentOf(SubViewOf("", Pair("id", Narrow("root")))));
  auto const root = Load(u"View");
  ASSERT_TRUE(root);
  EXPECT_EQ(mNodes.at("root"), root);
}

TEST_F(NodeBuilderResources, TheVariantOfTheRunningLookIsTaken) {
  mResources.Add("XML", "VIEW", DocumentOf(SubViewOf("", Pair("id", Narrow("classic")))));
  mResources.Add("XML", "VIEW.V7", DocumentOf(SubViewOf("", Pair("id", Narrow("newer")))));
  {
    testing::RunningLook const v7(true);
    EXPECT_EQ(Load(u"View")->UI_GetNodeID(), "newer");
  }
  testing::RunningLook const classic(false);
  EXPECT_EQ(Load(u"View")->UI_GetNodeID(), "classic");
}

TEST_F(NodeBuilderResources, WithoutTheResourceThereIsNoViewAndTheMapStays) {
  mNodes.emplace("mine", nullptr);
  EXPECT_FALSE(Load(u"View"));
  EXPECT_FALSE(UI_NodeBuilder::LoadViewFromXML(nullptr, nullptr, u"View", mNodes));
  mResources.Add("XML", "VIEW", DocumentOf(NodeOf("test::Other", {})));
  EXPECT_THROW(Load(u"View"), moxcore::config::mox_exception);
  EXPECT_EQ(mNodes.size(), 1u);
}

TEST_F(NodeBuilderResources, NodesThatTheMapHasAlreadyStay) {
  mResources.Add("XML", "VIEW", DocumentOf(SubViewOf("", Pair("id", Narrow("root")))));
  auto const mine = MakeIntrusive<UI_Node>();
  mNodes.emplace("root", mine);
  EXPECT_TRUE(Load(u"View"));
  EXPECT_EQ(mNodes.at("root"), mine);
}

TEST(NodeBuilder, EachBuildGivesNodesOfItsOwn) {
  UI_NodeBuilder const builder(DocumentOf(SubViewOf("", Pair("id", Narrow("root")))));
  EXPECT_NE(builder.Build(nullptr).root, builder.Build(nullptr).root);
}

}  // namespace
}  // namespace moxui::ui
