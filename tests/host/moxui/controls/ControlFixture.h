#pragma once

#include "RunningLook.h"

#include <moxcore/messaging/BindMessageFunction.h>
#include <moxcore/messaging/Connection.h>
#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/controls/UI_ControlMessage.h>
#include <moxui/controls/UI_ControlView.h>
#include <moxui/controls/UI_InteractiveControlView.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

namespace moxui::testing {

/// Counts what the listeners of a control hear.
class ChangeLog {
 public:
  explicit ChangeLog(controls::UI_ControlView& control) {
    mChanged = control.NotifyWhenChanged(Listener([this](moxcore::messaging::Message& message) {
      ++changes;
      lastWasInteractive = dynamic_cast<controls::UI_ControlChangedMessage&>(message).IsInteractive();
    }));
    if (auto* const interactive = dynamic_cast<controls::UI_InteractiveControlView*>(&control)) {
      mChangedInteractively =
          interactive->NotifyWhenChangedInteractively(Listener([this](moxcore::messaging::Message& message) {
            auto const& changed = dynamic_cast<controls::UI_InteractiveControlChangedMessage&>(message);
            phases.push_back(static_cast<int>(changed.GetChangeMessage()));
          }));
    }
  }

  static controls::MessageHandler Listener(std::function<void(moxcore::messaging::Message&)> function) {
    return std::make_shared<moxcore::messaging::MessageFunction>(
        [function = std::move(function)](moxcore::messaging::Message* message) { function(*message); });
  }

  int changes = 0;
  bool lastWasInteractive = false;
  std::vector<int> phases;

 private:
  // A control may outlive its log, and says something while it goes.
  moxcore::messaging::ScopedConnection mChanged;
  moxcore::messaging::ScopedConnection mChangedInteractively;
};

/// A stage with one control on it, in V7 and the dark theme unless told otherwise.
template <typename Control>
class ControlTest : public ::testing::Test {
 protected:
  template <typename... Arguments>
  Control& Put(RectT<float> const& rect, Arguments&&... arguments) {
    mControl = moxcore::utility::MakeIntrusive<Control>(std::forward<Arguments>(arguments)...);
    mControl->UI_SetLocalRectF(rect);
    mStage.GetRootView().ChildPushBack(mControl);
    mStage.PaintFrame();
    return *mControl;
  }
  PointT<float> Centre() const { return mStage.CenterOf(*mControl); }

  RunningLook mLook{true};
  Stage mStage{ExtentT<float>(400, 300)};
  moxcore::utility::IntrusivePtr<Control> mControl;
};

}  // namespace moxui::testing
