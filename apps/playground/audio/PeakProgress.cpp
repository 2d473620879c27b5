#include "audio/PeakProgress.h"

#include "audio/AudioSession.h"
#include "audio/ProgressBar.h"
#include "program/Localized.h"
#include "shell/Listening.h"
#include "shell/Painting.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>

namespace playground {
namespace {

using Action = ProgressReport::Action;
using State = AudioDocument::State;
using moxui::RectT;

constexpr float kButtonWidth = 96.0f;
constexpr float kGap = 12.0f;
constexpr float kWidestBar = 240.0f;

// Not 100 before all is there.
std::string PercentText(double fraction) {
  return std::to_string(static_cast<int>(std::floor(fraction * 100.0)));
}

moxcore::Utf16String LabelOf(Action action) {
  return action == Action::kRestart ? Text16("$$$/playground/progress/restart=Read again")
                                    : Text16("$$$/playground/progress/cancel=Cancel");
}

}  // namespace

ProgressReport ReportOf(AudioSession const& session) {
  if (!session.Opening().empty()) {
    return {Text("$$$/playground/progress/opening=Opening @0", {session.Opening().front().Title()}),
            std::nullopt, Action::kCancelOpening};
  }
  AudioDocument const& document = session.Current();
  bool const isWhole = document.Pyramid() && document.Pyramid()->IsComplete();
  double const fraction = document.Progress();
  switch (document.CurrentState()) {
    case State::kOpening:
    case State::kBuilding:
      return {Text("$$$/playground/progress/reading=Reading the sound: @0 %", {PercentText(fraction)}),
              fraction, Action::kCancelPeaks};
    case State::kCancelled:
      if (!isWhole) {
        return {Text("$$$/playground/progress/stopped=Stopped at @0 %: the rest isn't drawn.",
                     {PercentText(fraction)}),
                fraction, Action::kRestart};
      }
      return {};
    case State::kFailed:
      return {document.Problem(), std::nullopt, Action::kRestart};
    case State::kStoring:
    case State::kVerifying:
    case State::kDone:
      break;
  }
  return {document.Problem(), std::nullopt, Action::kNone};
}

PeakProgress::PeakProgress(AudioSession& session) : mSession(session) {
  using moxcore::utility::MakeIntrusive;
  mText = MakeIntrusive<moxui::controls::UI_StaticText>();
  mText->SetFontIndex(moxui::ui::FontIndex::kSmall);
  mText->SetAlignment(Leading());
  mText->SetTextTruncation(moxui::controls::TextTruncation::kMiddle);
  mBar = MakeIntrusive<ProgressBar>(Text("$$$/playground/progress/name=Reading the sound"));
  mButton = MakeIntrusive<moxui::controls::UI_TextButton>();
  mButton->SetFontIndex(moxui::ui::FontIndex::kSmall);
  mButton->SetWantsKeyboardFocus(true);
  ChildPushBack(mText);
  ChildPushBack(mBar);
  ChildPushBack(mButton);
  WhenChanged(*mButton, this, [](PeakProgress& progress) { progress.Act(); });
  Update();
}

PeakProgress::~PeakProgress() = default;

moxui::ui::UI_Node& PeakProgress::Bar() const {
  return *mBar;
}

bool PeakProgress::Update() {
  ProgressReport const report = ReportOf(mSession);
  if (!(report == mReport)) {
    mReport = report;
    mText->SetValue(To16(mReport.text));
    mText->UI_SetToolTip(moxcore::Utf8String(mReport.text), moxui::skins::GetToolTipDelay());
    mBar->SetFraction(mReport.fraction.value_or(0.0));
    mBar->UI_Show(mReport.fraction.has_value());
    mButton->SetTextLabel(LabelOf(mReport.action));
    mButton->UI_Show(mReport.action != Action::kNone);
    LayOut();
  }
  return !mReport.text.empty();
}

void PeakProgress::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  float const button = mReport.action == Action::kNone ? 0.0f : kButtonWidth + kGap;
  float const rest = std::max(own.width - button, 0.0f);
  float const bar = mReport.fraction ? std::min(kWidestBar, rest / 2.0f) : 0.0f;
  float const text = std::max(rest - (mReport.fraction ? bar + kGap : 0.0f), 0.0f);
  mText->UI_SetLocalRectF(Placed({0.0f, 0.0f, text, own.height}, own.width));
  mBar->UI_SetLocalRectF(Placed({rest - bar, 0.0f, bar, own.height}, own.width));
  mButton->UI_SetLocalRectF(Placed({own.width - kButtonWidth, 0.0f, kButtonWidth, own.height}, own.width));
}

void PeakProgress::Act() {
  switch (mReport.action) {
    case Action::kCancelOpening:
      return mSession.CancelOpening();
    case Action::kCancelPeaks:
      return mSession.CancelPeaks();
    case Action::kRestart:
      return mSession.RestartPeaks();
    case Action::kNone:
      break;
  }
}

void PeakProgress::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  LayOut();
}

}  // namespace playground
