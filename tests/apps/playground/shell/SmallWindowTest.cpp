// Pages in a window that is as small as anybody would make it.
#include "playground/StagedProgram.h"
#include "shell/ToolBar.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace playground {
namespace {

using Case = std::tuple<char const*, LookChoice, bool>;

class SmallWindow : public testing::TestWithParam<Case> {};

TEST_P(SmallWindow, HoldsAllOfAPageWithoutOverlaps) {
  auto const& [page, look, isRightToLeft] = GetParam();
  Appearance appearance;
  appearance.look = look;
  appearance.rightToLeft = isRightToLeft;
  StagedProgram program(page, appearance, {800.0f, 600.0f});
  Page& shown = *program.shell.View().GetPage();
  moxui::RectT<float> const room = shown.UI_GetLocalRectF(false);
  for (std::size_t i = 0; i < shown.ChildSize(); ++i) {
    if (!shown.ChildGet(i)->UI_IsShown()) {
      continue;
    }
    moxui::RectT<float> const rect = shown.ChildGet(i)->UI_GetLocalRectF(true);
    EXPECT_FALSE(rect.IsEmpty()) << "part " << i;
    EXPECT_EQ(room.Intersection(rect), rect) << "part " << i << " lies within the page";
    for (std::size_t j = 0; j < i; ++j) {
      moxui::RectT<float> const other = shown.ChildGet(j)->UI_GetLocalRectF(true);
      EXPECT_TRUE(!shown.ChildGet(j)->UI_IsShown() || rect.Intersection(other).IsEmpty())
          << "parts " << j << " and " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, SmallWindow,
                         testing::Combine(testing::Values("curve", "presets", "channels"),
                                          testing::Values(LookChoice::kClassic, LookChoice::kV7),
                                          testing::Bool()),
                         [](auto const& one) {
                           return std::string(std::get<0>(one.param)) +
                                  (std::get<1>(one.param) == LookChoice::kV7 ? "V7" : "Classic") +
                                  (std::get<2>(one.param) ? "RightToLeft" : "");
                         });

class ToolBarOf : public testing::TestWithParam<std::tuple<float, LookChoice, bool>> {
 protected:
  static float Width() { return std::get<0>(GetParam()); }
};

TEST_P(ToolBarOf, HoldsAllOfItsControlsSideBySide) {
  for (LanguageChoice const& language : {LanguageChoice::kEnglish, LanguageChoice::kPseudo}) {
    Appearance appearance;
    appearance.look = std::get<1>(GetParam());
    appearance.rightToLeft = std::get<2>(GetParam());
    appearance.language = language;
    StagedProgram program("buttons", appearance, {Width(), 600.0f});
    ToolBar& bar = program.shell.View().GetToolBar();
    moxui::RectT<float> const room = bar.UI_GetLocalRectF(false);
    for (std::size_t i = 0; i < bar.ChildSize(); ++i) {
      moxui::RectT<float> const rect = bar.ChildGet(i)->UI_GetLocalRectF(true);
      EXPECT_GE(rect.width, 40.0f) << "control " << i;
      EXPECT_EQ(room.Intersection(rect), rect) << "control " << i;
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_TRUE(rect.Intersection(bar.ChildGet(j)->UI_GetLocalRectF(true)).IsEmpty())
            << "controls " << j << " and " << i;
      }
    }
    // What no label says a tool tip does.
    EXPECT_EQ(bar.Theme().UI_GetToolTip().empty(), Width() >= 960.0f);
    EXPECT_FALSE(bar.Theme().UI_GetAccessibleName().empty());
  }
}

INSTANTIATE_TEST_SUITE_P(Widths, ToolBarOf,
                         testing::Combine(testing::Values(1440.0f, 960.0f, 800.0f, 720.0f),
                                          testing::Values(LookChoice::kClassic, LookChoice::kV7),
                                          testing::Bool()));

}  // namespace
}  // namespace playground
