#include "audio/AudioDocument.h"
#include "audio/ChannelGutter.h"
#include "playground/SoundFiles.h"
#include "playground/StagedProgram.h"
#include "playground/TemporaryFolder.h"
#include "program/HexColor.h"

#include <moxui/testing/ModalAnswers.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gtest/gtest.h>

namespace playground {
namespace {

using moxui::ui::AccessibleRole;
using moxui::ui::KeyboardCode;

class Gutter : public testing::Test {
 protected:
  ChannelGutter& gutter() { return program.Audio().Gutter(); }
  void Focus() { gutter().UI_GainKeyboardFocus(moxui::ui::FocusChangeReason::kTraversal); }
  moxui::PointT<float> MiddleOf(std::size_t channel) {
    return gutter().UI_ConvertRectTo(nullptr, gutter().StripRect(channel)).Center();
  }

  StagedProgram program;
};

TEST_F(Gutter, ArrowsGoFromChannelToChannelAndSpaceSwitches) {
  Focus();
  ASSERT_TRUE(gutter().UI_HasKeyboardFocus());
  auto const before = program.Picture();
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kDown));
  EXPECT_FALSE(program.Picture() == before) << "the ring has moved";
  EXPECT_EQ(gutter().GetValue(), 1u);
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kSpace));
  EXPECT_FALSE(program.Session().IsChannelEnabled(1));
  EXPECT_TRUE(program.stage.Key(KeyboardCode::kSpace));
  EXPECT_TRUE(program.Session().IsChannelEnabled(1));
  program.stage.Key(KeyboardCode::kEnd);
  program.stage.Key(KeyboardCode::kDown);
  EXPECT_EQ(gutter().GetValue(), 5u);
  program.stage.Key(KeyboardCode::kHome);
  program.stage.Key(KeyboardCode::kUp);
  EXPECT_EQ(gutter().GetValue(), 0u);
}

TEST_F(Gutter, MenuGivesAChannelAColourAndTakesItBack) {
  moxui::testing::ModalAnswers answers;
  answers.Expect(5);
  program.stage.Click(MiddleOf(2), moxui::ui::MouseButton::kRight);
  ASSERT_TRUE(answers.AllUsed());
  ASSERT_TRUE(program.Session().Settings().channelColors[2]);
  EXPECT_EQ(HexFromColor(*program.Session().Settings().channelColors[2]), "#E5484D");
  EXPECT_TRUE(program.Session().IsChannelEnabled(2)) << "the right button switches nothing";
  answers.Expect(1);
  Focus();
  program.stage.Key(KeyboardCode::kContextMenu);
  EXPECT_FALSE(program.Session().Settings().channelColors[2]);
}

TEST_F(Gutter, MenuThatIsLeftChangesNothing) {
  moxui::testing::ModalAnswers answers;
  auto const before = program.Session().Settings();
  program.stage.Click(MiddleOf(1), moxui::ui::MouseButton::kRight);
  EXPECT_EQ(answers.GetRecords().size(), 1u);
  EXPECT_EQ(program.Session().Settings(), before);
}

TEST_F(Gutter, MenuOutlivesTheSoundThatItWasOpenedFor) {
  moxui::testing::ModalAnswers answers;
  answers.Expect([this](moxui::platform::ModalRequest&) {
    program.Session().ShowDocument(program.Session().Documents().size());
    return 5;
  });
  program.stage.Click(MiddleOf(1), moxui::ui::MouseButton::kRight);
  EXPECT_TRUE(answers.AllUsed());
  program.Picture();
}

TEST_F(Gutter, IsAListOfNamedChannelsForAssistiveSoftware) {
  EXPECT_EQ(gutter().UI_GetAccessibleRole(), AccessibleRole::kList);
  EXPECT_EQ(gutter().UI_GetAccessibleName(), "Channels");
  EXPECT_EQ(gutter().UI_GetAccessibleValue(), "Left, on");
  ASSERT_EQ(gutter().ChildSize(), 6u);
  auto const item = gutter().ChildGet(3);
  EXPECT_EQ(item->UI_GetAccessibleRole(), AccessibleRole::kListItem);
  EXPECT_EQ(item->UI_GetAccessibleName(), "Low frequency");
  EXPECT_EQ(item->UI_GetAccessibleValue(), "on");
  program.Session().ToggleChannel(3);
  EXPECT_EQ(item->UI_GetAccessibleValue(), "off");
  EXPECT_EQ(item->UI_GetLocalRectF(true), gutter().StripRect(3));
}

TEST_F(Gutter, WorksForEveryChannelOfALargeFile) {
  TemporaryFolder folder;
  auto const path = WriteFloats(folder.Path(), "many.wav", 40, std::vector<float>(4000, 0.25f));
  program.Session().OpenFiles({path.string()});
  program.Session().WaitForOpening();
  ASSERT_EQ(program.Session().Current().ChannelCount(), 40u);
  EXPECT_EQ(gutter().ChildSize(), 40u);
  Focus();
  program.stage.Key(KeyboardCode::kEnd);
  program.stage.Key(KeyboardCode::kSpace);
  EXPECT_FALSE(program.Session().IsChannelEnabled(39));
  moxui::testing::ModalAnswers answers;
  answers.Expect(2);
  program.stage.Key(KeyboardCode::kReturn);
  ASSERT_TRUE(program.Session().Settings().channelColors[39]);
  EXPECT_EQ(HexFromColor(*program.Session().Settings().channelColors[39]), "#000000");
}

TEST_F(Gutter, IsNoStopOfTheTabKeyWithoutChannels) {
  program.Audio().ShowState(5);
  EXPECT_EQ(gutter().ChildSize(), 0u);
  EXPECT_FALSE(gutter().UI_WantsKeyboardFocus());
  EXPECT_FALSE(program.stage.Key(KeyboardCode::kSpace));
}

}  // namespace
}  // namespace playground
