#include "audio/WaveformView.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"
#include "program/Localized.h"
#include "shell/EventLogView.h"
#include "shell/MainView.h"
#include "shell/PageList.h"
#include "shell/TabStrip.h"
#include "shell/ToolBar.h"

#include <moxui/platform/Application.h>
#include <moxui/platform/FileDialogs.h>
#include <moxui/platform/Window.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace playground {
namespace {

using moxui::ui::KeyboardCode;
using moxui::ui::ModKeys;
namespace ModKey = moxui::ui::ModKey;

std::size_t ListedPages(MainView const& view) {
  std::size_t pages = 0;
  for (PageListRow const& row : view.GetPageList().GetRows()) {
    pages += row.page.has_value() ? 1u : 0u;
  }
  return pages;
}

void ClickRow(StagedProgram& program, std::size_t page) {
  PageList& list = program.shell.View().GetPageList();
  for (std::size_t row = 0; row < list.GetRows().size(); ++row) {
    if (list.GetRows()[row].page == page) {
      program.stage.Click(list.UI_ConvertRectTo(nullptr, list.ItemRect(row)).Center());
    }
  }
}

TEST(MainView, ShowsThePageThatIsClicked) {
  StagedProgram program;
  auto const before = program.Picture();
  ClickRow(program, FindPage("slider"));
  EXPECT_EQ(program.state.page, FindPage("slider"));
  EXPECT_FALSE(program.Picture() == before);
}

TEST(MainView, GoesThroughThePagesByArrowKeys) {
  StagedProgram program;
  program.shell.View().GetPageList().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
  program.stage.Key(KeyboardCode::kDown);
  EXPECT_EQ(program.state.page, 1u);
  for (std::size_t i = 0; i < AllPages().size() + 3; ++i) {
    program.stage.Key(KeyboardCode::kDown);
  }
  EXPECT_EQ(program.state.page, AllPages().size() - 1);
  program.stage.Key(KeyboardCode::kUp);
  EXPECT_EQ(program.state.page, AllPages().size() - 2);
}

TEST(MainView, ListsThePagesThatAreSearchedFor) {
  StagedProgram program;
  EXPECT_EQ(ListedPages(program.shell.View()), AllPages().size());
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kF, ModKeys(ModKey::kCommand)));
  program.stage.Type(u"CHECKB");
  EXPECT_EQ(ListedPages(program.shell.View()), 1u);
  program.stage.Key(KeyboardCode::kDown);
  EXPECT_EQ(program.state.page, FindPage("checkbox"));
  program.stage.Type(u"zzz");
  EXPECT_EQ(ListedPages(program.shell.View()), 0u);
  program.Picture();
}

TEST(MainView, ShowsTheStateWhoseTabIsClicked) {
  StagedProgram program("buttons");
  TabStrip& tabs = program.shell.View().GetTabs();
  auto const before = program.Picture();
  program.stage.Click(tabs.UI_ConvertRectTo(nullptr, tabs.ItemRect(4)).Center());
  EXPECT_EQ(program.state.stateOfPage, 4u);
  EXPECT_FALSE(program.Picture() == before);
  program.stage.Key(KeyboardCode::kLeft);
  EXPECT_EQ(program.state.stateOfPage, 3u);
  program.stage.Key(KeyboardCode::kHome);
  EXPECT_EQ(program.state.stateOfPage, 0u);
}

TEST(MainView, StaysInTheStateOfAPageInAnotherTheme) {
  StagedProgram program("buttons");
  TabStrip& tabs = program.shell.View().GetTabs();
  program.stage.Click(tabs.UI_ConvertRectTo(nullptr, tabs.ItemRect(4)).Center());
  Appearance appearance;
  appearance.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(appearance);
  EXPECT_EQ(program.shell.View().GetTabs().GetValue(), 4u);
  auto const switched = program.Picture();
  program.shell.View().GetPage()->ShowState(4);
  EXPECT_TRUE(program.Picture() == switched);
  program.shell.View().GetPage()->ShowState(0);
  EXPECT_FALSE(program.Picture() == switched);
}

TEST(MainView, SwitchesThemeLookLanguageAndDirectionWhileItRuns) {
  StagedProgram program;
  moxui::testing::ModalAnswers answers;
  std::set<std::vector<std::uint8_t>> pictures{program.Picture().bytes};
  auto const choose = [&](moxui::controls::UI_Popup& (*popup)(ToolBar const&), int item) {
    answers.Expect(item);
    program.stage.Click(program.stage.CenterOf(popup(program.shell.View().GetToolBar())));
    EXPECT_TRUE(pictures.insert(program.Picture().bytes).second);
  };
  choose([](ToolBar const& bar) -> moxui::controls::UI_Popup& { return bar.Theme(); }, 2);
  EXPECT_EQ(program.state.appearance.theme, ThemeChoice::kLight);
  choose([](ToolBar const& bar) -> moxui::controls::UI_Popup& { return bar.Theme(); }, 3);
  choose([](ToolBar const& bar) -> moxui::controls::UI_Popup& { return bar.Look(); }, 1);
  EXPECT_EQ(program.state.appearance.look, LookChoice::kClassic);
  choose([](ToolBar const& bar) -> moxui::controls::UI_Popup& { return bar.Language(); }, 2);
  EXPECT_EQ(program.state.appearance.language, LanguageChoice::kPseudo);
  program.stage.Click(program.stage.CenterOf(program.shell.View().GetToolBar().Direction()));
  EXPECT_TRUE(program.state.appearance.rightToLeft);
  EXPECT_TRUE(pictures.insert(program.Picture().bytes).second);
}

TEST(MainView, KeepsTheFocusAtAControlThatSwitchesTheLook) {
  StagedProgram program;
  program.shell.View().GetToolBar().Look().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kLeft));
  EXPECT_EQ(program.state.appearance.look, LookChoice::kClassic);
  EXPECT_TRUE(program.shell.View().GetToolBar().Look().UI_HasKeyboardFocus());
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kRight));
  EXPECT_EQ(program.state.appearance.look, LookChoice::kV7);
}

TEST(MainView, KeepsTheFocusAtEachControlOfTheBarThroughEverySwitch) {
  using Find = moxui::ui::UI_Node& (*)(ToolBar const&);
  Find const controls[] = {[](ToolBar const& bar) -> moxui::ui::UI_Node& { return bar.Theme(); },
                           [](ToolBar const& bar) -> moxui::ui::UI_Node& { return bar.Look(); },
                           [](ToolBar const& bar) -> moxui::ui::UI_Node& { return bar.Scale(); },
                           [](ToolBar const& bar) -> moxui::ui::UI_Node& { return bar.Language(); },
                           [](ToolBar const& bar) -> moxui::ui::UI_Node& { return bar.Direction(); },
                           [](ToolBar const& bar) -> moxui::ui::UI_Node& { return bar.Open(); }};
  for (Find const find : controls) {
    StagedProgram program;
    find(program.shell.View().GetToolBar()).UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal);
    Appearance appearance;
    for (auto const& change : std::vector<std::function<void()>>{
             [&] { appearance.theme = ThemeChoice::kLight; }, [&] { appearance.look = LookChoice::kClassic; },
             [&] { appearance.language = LanguageChoice::kPseudo; },
             [&] { appearance.rightToLeft = true; }}) {
      change();
      program.shell.SetAppearance(appearance);
      program.stage.PaintFrame();
      EXPECT_TRUE(find(program.shell.View().GetToolBar()).UI_HasKeyboardFocus());
    }
  }
}

TEST(MainView, KeepsWhatWasSearchedForAndHowFarThingsWereScrolled) {
  // So low that the list of pages is scrolled as well.
  StagedProgram program("audio", {}, {960.0f, 260.0f});
  MainView const& view = program.shell.View();
  program.stage.Key(KeyboardCode::kF, ModKeys(ModKey::kCommand));
  program.stage.Type(u"stock");
  for (int i = 0; i < 40; ++i) {
    program.state.log.Add("line " + std::to_string(i));
  }
  view.GetPageList().ScrollTo(20.0f);
  view.GetPage()->SetScrollOffset(100.0f);
  view.GetLog().ScrollBack(7);
  program.stage.PaintFrame();
  std::size_t const listed = ListedPages(view);
  ASSERT_LT(listed, AllPages().size());
  ASSERT_EQ(view.GetPageList().GetOffset(), 20.0f);
  ASSERT_EQ(view.GetPage()->GetScrollOffset(), 100.0f);
  ASSERT_EQ(view.GetLog().GetLinesBack(), 7);

  Appearance appearance;
  appearance.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(appearance);
  program.stage.PaintFrame();
  MainView const& next = program.shell.View();
  EXPECT_EQ(next.GetSearch().GetValue(), u"stock");
  EXPECT_EQ(ListedPages(next), listed);
  EXPECT_EQ(next.GetPageList().GetOffset(), 20.0f);
  EXPECT_EQ(next.GetPage()->GetScrollOffset(), 100.0f);
  EXPECT_EQ(next.GetLog().GetLinesBack(), 7);
  EXPECT_TRUE(next.GetSearch().UI_HasKeyboardFocus());
}

TEST(MainView, RowsAndTabsAreItemsForAssistiveSoftware) {
  StagedProgram program("buttons");
  PageList const& list = program.shell.View().GetPageList();
  ASSERT_EQ(list.ChildSize(), list.GetRows().size());
  EXPECT_EQ(list.ChildGet(0)->UI_GetAccessibleRole(), moxui::ui::AccessibleRole::kStaticText);
  EXPECT_EQ(list.ChildGet(1)->UI_GetAccessibleRole(), moxui::ui::AccessibleRole::kListItem);
  EXPECT_EQ(list.ChildGet(1)->UI_GetAccessibleName(), "Audio");
  TabStrip const& tabs = program.shell.View().GetTabs();
  ASSERT_EQ(tabs.ChildSize(), 6u);
  EXPECT_EQ(tabs.ChildGet(2)->UI_GetAccessibleRole(), moxui::ui::AccessibleRole::kTab);
  EXPECT_EQ(tabs.ChildGet(2)->UI_GetAccessibleName(), "Pressed");
  EXPECT_EQ(tabs.ChildGet(2)->UI_GetLocalRectF(true), tabs.ItemRect(2));
  EXPECT_EQ(tabs.UI_GetAccessibleValue(), "Normal");
}

TEST(MainView, AsksForFilesAboveItsWindow) {
  auto const window = moxui::platform::Application::Get()->CreateWindow({});
  ProgramState state;
  Shell const shell(state, window->GetTree(), window.get());
  EXPECT_EQ(shell.RequestForFiles().parent, window.get());
  EXPECT_TRUE(shell.RequestForFiles().allowsSeveral);
}

TEST(MainView, TellsTheWindowOfAnotherScale) {
  StagedProgram program;
  double scale = 0.0;
  program.shell.SetAppearanceFunction([&scale](Appearance const& appearance) { scale = appearance.scale; });
  moxui::testing::ModalAnswers answers;
  answers.Expect(4);
  program.stage.Click(program.stage.CenterOf(program.shell.View().GetToolBar().Scale()));
  EXPECT_EQ(scale, 2.0);
}

TEST(MainView, KeepsSoundViewAndSelectionInAnotherLanguage) {
  StagedProgram program;
  program.Session().ChangeView([](Viewport& view) { view.ZoomAt(10.0, 4.0); });
  program.Session().ChangeSelection([](SampleSelection& selection) { selection.Select(100, 2000); });
  double const samplesPerPixel = program.Session().View().SamplesPerPixel();
  Appearance appearance = program.state.appearance;
  appearance.language = LanguageChoice::kPseudo;
  program.shell.SetAppearance(appearance);
  program.stage.PaintFrame();
  EXPECT_EQ(program.Session().View().SamplesPerPixel(), samplesPerPixel);
  EXPECT_EQ(program.Session().Selection().Width(), 1900);
}

TEST(MainView, LiesTheOtherWayRoundFromRightToLeft) {
  Appearance appearance;
  appearance.rightToLeft = true;
  StagedProgram program("audio", appearance);
  EXPECT_GT(program.stage.CenterOf(program.shell.View().GetPageList()).x, 1000.0f);
  // Time runs from left to right all the same.
  program.stage.Drag(StagedProgram::PointIn(program.Audio().Waveform(), 0.25f),
                     StagedProgram::PointIn(program.Audio().Waveform(), 0.5f));
  EXPECT_LT(program.Session().Selection().Anchor(), program.Session().Selection().Head());
}

TEST(MainView, EveryTextIsTranslated) {
  Appearance appearance;
  appearance.language = LanguageChoice::kPseudo;
  StagedProgram program("audio", appearance);
  for (PageDescriptor const& page : AllPages()) {
    for (std::string_view const literal : {page.title, page.group, page.description}) {
      EXPECT_NE(Text(literal), std::string(literal.substr(literal.find('=') + 1))) << literal;
    }
  }
}

// All that the Tab key comes by, with what it is called.
std::vector<std::pair<moxui::ui::UI_Node*, std::string>> TabStops(StagedProgram& program) {
  std::vector<std::pair<moxui::ui::UI_Node*, std::string>> stops;
  constexpr int kMany = 300;
  for (int i = 0; i < kMany; ++i) {
    if (!program.stage.Tab()) {
      break;
    }
    moxui::ui::UI_Node* const leaf = program.stage.GetTree().GetFocusLeaf();
    if (!stops.empty() && leaf == stops.front().first) {
      break;
    }
    std::string name(leaf->UI_GetAccessibleName());
    for (moxui::ui::UI_Node* node = leaf->UI_GetParentNode(); name.empty() && node != nullptr;
         node = node->UI_GetParentNode()) {
      name = node->UI_GetAccessibleName();
    }
    stops.emplace_back(leaf, name);
  }
  return stops;
}

class Reachable : public testing::TestWithParam<std::string_view> {};

TEST_P(Reachable, ByTabAndNamedForAssistiveSoftware) {
  StagedProgram program(GetParam());
  auto const stops = TabStops(program);
  EXPECT_GE(stops.size(), 8u);
  for (auto const& [node, name] : stops) {
    EXPECT_FALSE(name.empty()) << GetParam();
  }
}

TEST_P(Reachable, BackwardInTheOppositeOrder) {
  StagedProgram program(GetParam());
  auto const stops = TabStops(program);
  ASSERT_FALSE(stops.empty());
  stops.front().first->UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kByCode);
  program.stage.Tab(true);
  EXPECT_EQ(program.stage.GetTree().GetFocusLeaf(), stops.back().first);
}

INSTANTIATE_TEST_SUITE_P(Pages, Reachable,
                         testing::Values("audio", "channels", "timecode", "curve", "presets", "buttons",
                                         "checkbox", "popup", "slider", "scroll-view", "hot-text",
                                         "text-edit", "message-box", "dialog"),
                         [](auto const& page) {
                           std::string name(page.param);
                           name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
                           return name;
                         });

TEST(MainView, AsksForFilesByKeyAndOpensThem) {
  TemporaryFolder folder;
  auto const path = WriteTone(folder.Path(), "tone.wav");
  StagedProgram program;
  moxui::testing::ModalAnswers answers;
  answers.Expect([&path](moxui::platform::ModalRequest& request) {
    EXPECT_EQ(request.kind, moxui::platform::ModalKind::kFileDialog);
    request.files->push_back(moxcore::Utf8String(path.string()));
    return 1;
  });
  program.stage.Key(KeyboardCode::kO, ModKeys(ModKey::kCommand));
  EXPECT_TRUE(answers.AllUsed());
  program.Session().WaitForOpening();
  EXPECT_EQ(program.Session().Current().Title(), "tone.wav");
}

TEST(MainView, OpensNothingWhenTheUserGivesUp) {
  StagedProgram program;
  moxui::testing::ModalAnswers answers;
  program.stage.Key(KeyboardCode::kO, ModKeys(ModKey::kCommand));
  EXPECT_EQ(program.Session().Documents().size(), 1u);
  EXPECT_EQ(program.Audio().FailureText(), "");
}

TEST(MainView, ChangesPageInTheMiddleOfADrag) {
  StagedProgram program;
  program.stage.Press(StagedProgram::PointIn(program.Audio().Waveform(), 0.25f));
  program.stage.Move(StagedProgram::PointIn(program.Audio().Waveform(), 0.5f));
  program.shell.View().ShowPage(FindPage("popup"));
  program.stage.Move({500.0f, 400.0f});
  program.stage.Release({500.0f, 400.0f});
  program.stage.AdvanceTime(1000.0);
  program.Picture();
  EXPECT_EQ(program.state.page, FindPage("popup"));
}

TEST(MainView, ChangesThemeInTheMiddleOfADrag) {
  StagedProgram program;
  program.stage.Press(StagedProgram::PointIn(program.Audio().Waveform(), 0.25f));
  Appearance appearance;
  appearance.theme = ThemeChoice::kLight;
  program.shell.SetAppearance(appearance);
  auto const selected = program.Session().Selection().Width();
  program.stage.Move({500.0f, 400.0f});
  program.stage.Release({500.0f, 400.0f});
  program.Picture();
  // The view that was dragged in is gone, and the new one was never pressed.
  EXPECT_EQ(program.Session().Selection().Width(), selected);
}

TEST(MainView, EndsInTheMiddleOfADrag) {
  ProgramState state;
  moxui::testing::Stage stage({1200.0f, 800.0f});
  {
    Shell shell(state, stage.GetTree());
    stage.PaintFrame();
    stage.Press({500.0f, 400.0f});
    stage.Move({600.0f, 400.0f});
  }
  stage.Move({700.0f, 400.0f});
  stage.Release({700.0f, 400.0f});
  stage.AdvanceTime(1000.0);
  state.audio.ChangeView([](Viewport& view) { view.ShowAll(); });
  state.log.Add("nobody listens");
  EXPECT_EQ(stage.GetRoot(), nullptr);
}

TEST(MainView, HoldsOutInTheSmallestWindow) {
  for (std::string_view const page : {"audio", "timecode", "buttons", "scroll-view"}) {
    StagedProgram program(page, {}, {960.0f, 600.0f});
    program.Picture();
    program.stage.GetTree().SetSize({1.0f, 1.0f});
    program.stage.PaintFrame();
    program.stage.GetTree().SetSize({0.0f, 0.0f});
    program.stage.PaintFrame();
  }
}

TEST(MainView, KeepsWhatIsShownAtAnotherScale) {
  StagedProgram program;
  program.Session().ChangeView([](Viewport& view) { view.Show(48000.0, 96000.0); });
  program.stage.SetScale(1.5f);
  program.stage.PaintFrame();
  EXPECT_NEAR(program.Session().View().Left(), 48000.0, 1.0);
  EXPECT_NEAR(program.Session().View().VisibleSamples(), 48000.0, 1.0);
}

}  // namespace
}  // namespace playground
