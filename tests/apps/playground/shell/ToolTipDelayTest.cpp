// How long the pointer rests before a tip appears depends on the look alone.
#include "audio/ChannelGutter.h"
#include "audio/TimeRulerView.h"
#include "playground/StagedProgram.h"

#include <moxui/ui/UI_Container.h>

#include <gtest/gtest.h>

#include <string>

namespace playground {
namespace {

class ToolTipsOf : public testing::TestWithParam<LookChoice> {
 protected:
  static int Delay() { return GetParam() == LookChoice::kV7 ? 200 : 400; }
  static Appearance Look(LookChoice look) {
    Appearance appearance;
    appearance.look = look;
    return appearance;
  }
  // Gives the number of tips at the node and below it.
  int Check(moxui::ui::UI_Node const& node) {
    int count = 0;
    if (!node.UI_GetToolTip().empty()) {
      ++count;
      EXPECT_EQ(node.UI_GetToolTipDelay(), Delay())
          << std::string(node.UI_GetToolTip().begin(), node.UI_GetToolTip().end());
    }
    moxui::ui::UI_Container const* const children = node.UI_GetContainer();
    for (std::size_t i = 0; children != nullptr && i < children->ChildSize(); ++i) {
      count += Check(*children->ChildGet(i));
    }
    return count;
  }
};

TEST_P(ToolTipsOf, AllPagesAppearAfterTheTimeOfTheLook) {
  StagedProgram program("audio", Look(GetParam()));
  for (std::size_t page = 0; page < AllPages().size(); ++page) {
    SCOPED_TRACE(AllPages()[page].name);
    program.shell.View().ShowPage(page);
    EXPECT_GT(Check(*program.stage.GetRoot()), 0);
  }
}

TEST_P(ToolTipsOf, FollowALookThatIsChosen) {
  LookChoice const other = GetParam() == LookChoice::kV7 ? LookChoice::kClassic : LookChoice::kV7;
  StagedProgram program("audio", Look(other));
  program.shell.SetAppearance(Look(GetParam()));
  program.stage.PaintFrame();
  // The names of the channels have a tip each while the pointer is on them.
  ChannelGutter const& gutter = program.Audio().Gutter();
  program.stage.Move(program.stage.CenterOf(gutter));
  EXPECT_FALSE(gutter.UI_GetToolTip().empty());
  EXPECT_FALSE(program.Audio().Ruler().UI_GetToolTip().empty());
  Check(*program.stage.GetRoot());
}

INSTANTIATE_TEST_SUITE_P(Looks, ToolTipsOf, testing::Values(LookChoice::kClassic, LookChoice::kV7),
                         [](auto const& look) {
                           return std::string(look.param == LookChoice::kV7 ? "V7" : "Classic");
                         });

}  // namespace
}  // namespace playground
