// A drag that begins at one node and ends at another. The platform that tests run on has no drag loop of its
// own, so a hand of the testing library takes its place.
#include "LoggingNode.h"

#include <moxui/testing/DragHand.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/UI_DragDropHandler.h>

#include <gmock/gmock.h>

#include <optional>

namespace moxui {
namespace {

using ::testing::ElementsAre;
namespace DropEffect = ui::DropEffect;

class DragLoop : public ::testing::Test {
 protected:
  DragLoop() {
    source->takes = true;
    source->onMouse = [this](ui::MouseEvent const& event) {
      if (event.IsAction(ui::PointerAction::kPress)) {
        ui::OS_SendData data(event.GetOSEvent());
        data.SetText(u"take 7");
        data.SetData("application/x-clip", {std::byte{1}, std::byte{2}});
        effect = data.DoDrag(source.Get(), offered);
        log.emplace_back("drag ended");
      }
    };
    target->UI_InstallHandleDragEnterFunction(
        [this](PointT<float>, ui::OS_ReceiveData&, int&) { return accepts; });
    target->UI_InstallHandleDropFunction(
        [this](PointT<float> point, ui::OS_ReceiveData& data, int& proposed) {
          log.emplace_back("drop");
          place = point;
          text = data.GetText();
          bytes = data.HasFormat("application/x-clip") ? data.GetData("application/x-clip")->size() : 0;
          proposed = written.value_or(proposed);
          return true;
        });
  }

  Log log;
  testing::Stage stage;
  LoggingNodePtr source = AddNode(stage.GetRootView(), log, "source", {0, 0, 50, 60});
  LoggingNodePtr target = AddNode(stage.GetRootView(), log, "target", {50, 0, 50, 60});
  testing::DragHand hand{stage};
  int offered = DropEffect::kCopy | DropEffect::kMove;
  int effect = -1;
  bool accepts = true;
  std::optional<int> written;
  PointT<float> place;
  moxcore::Utf16String text;
  std::size_t bytes = 0;
};

TEST_F(DragLoop, TakesDataFromOneNodeToAnother) {
  hand.DropAt({72, 24});

  stage.Press({10, 10});

  EXPECT_EQ(effect, DropEffect::kMove);
  EXPECT_EQ(text, u"take 7");
  EXPECT_EQ(bytes, 2u);
  EXPECT_EQ(place, PointT<float>(22, 24));
  EXPECT_EQ(hand.GetDragged()->text, u"take 7");
  EXPECT_EQ(hand.GetOfferedEffects(), offered);
  // The source hears the release that the loop has swallowed, after its own handler is done.
  EXPECT_THAT(log, ElementsAre("source press", "drop", "drag ended", "source release"));
}

TEST_F(DragLoop, GivesTheEffectThatTheTargetChose) {
  written = DropEffect::kCopy;
  hand.DropAt({72, 24});
  stage.Press({10, 10});
  EXPECT_EQ(effect, DropEffect::kCopy);
}

TEST_F(DragLoop, GivesNoEffectThatWasNotOffered) {
  written = DropEffect::kLink;
  hand.DropAt({72, 24});
  stage.Press({10, 10});
  EXPECT_EQ(effect, DropEffect::kNone);
}

TEST_F(DragLoop, GivesNoEffectWhereNobodyTakesTheData) {
  accepts = false;
  hand.DropAt({72, 24});
  stage.Press({10, 10});
  EXPECT_EQ(effect, DropEffect::kNone);
  EXPECT_THAT(log, ElementsAre("source press", "drag ended", "source release"));
}

TEST_F(DragLoop, MayBeGivenUp) {
  target->UI_InstallHandleDragLeaveFunction([this](ui::OS_ReceiveData&) { log.emplace_back("leave"); });
  hand.GiveUpAt({72, 24});
  stage.Press({10, 10});
  EXPECT_EQ(effect, DropEffect::kNone);
  EXPECT_THAT(log, ElementsAre("source press", "leave", "drag ended", "source release"));
}

TEST_F(DragLoop, MayEndItsSource) {
  target->UI_InstallHandleDropFunction([this](PointT<float>, ui::OS_ReceiveData&, int&) {
    stage.GetRootView().ChildRemove(source);
    return true;
  });
  hand.DropAt({72, 24});
  stage.Press({10, 10});
  EXPECT_EQ(effect, DropEffect::kMove);
  EXPECT_EQ(source->UI_GetTree(), nullptr);
}

TEST(DragWithoutData, DoesNotBegin) {
  testing::Stage stage;
  testing::DragHand const hand(stage);
  ui::OS_SendData data{ui::OS_Event()};
  EXPECT_EQ(data.DoDrag(stage.GetRoot(), DropEffect::kCopy), DropEffect::kNone);
  EXPECT_FALSE(hand.GetDragged().has_value());
}

}  // namespace
}  // namespace moxui
