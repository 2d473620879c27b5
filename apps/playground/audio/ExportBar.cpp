#include "audio/ExportBar.h"

#include "audio/AudioSession.h"
#include "audio/ProgressBar.h"
#include "program/Localized.h"
#include "shell/Listening.h"
#include "shell/Painting.h"

#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Look.h>

#include <algorithm>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;

constexpr int kLookTimer = 1;
constexpr float kLookPeriod = 100.0f;  // milliseconds
constexpr float kInset = 8.0f;
constexpr float kBarWidth = 160.0f;
constexpr float kButtonWidth = 88.0f;
constexpr float kButtonHeight = 20.0f;
constexpr float kEdgeWidth = 4.0f;

}  // namespace

ExportBar::ExportBar(AudioSession& session) : mSession(session) {
  mText = MakeIntrusive<moxui::controls::UI_StaticText>();
  mText->SetAlignment(Leading());
  mText->SetTextTruncation(moxui::controls::TextTruncation::kMiddle);
  mBar = MakeIntrusive<ProgressBar>(Text("$$$/playground/export/name=Export"));
  mButton = MakeIntrusive<moxui::controls::UI_TextButton>();
  mButton->SetWantsKeyboardFocus(true);
  ChildPushBack(mText);
  ChildPushBack(mBar);
  ChildPushBack(mButton);
  WhenChanged(*mButton, this, [](ExportBar& bar) {
    if (bar.IsRunning()) {
      bar.mSession.CancelExport();
    } else {
      bar.mSession.DismissExport();
    }
  });
}

ExportBar::~ExportBar() = default;

bool ExportBar::IsRunning() const {
  return mSession.Exports().IsRunning();
}

bool ExportBar::Update() {
  bool const runs = IsRunning();
  std::string const sentence = mSession.Exports().Sentence();
  // One that fails at once is never seen running.
  bool const ends = !runs && !sentence.empty() && (mWasRunning || sentence != mSentence);
  if (runs && !mWasRunning) {
    UI_InstallTimer(kLookPeriod, kLookTimer);
  } else if (!runs && mWasRunning) {
    UI_RemoveTimer(kLookTimer);
  }
  if (sentence != mSentence || runs != mWasRunning) {
    mSentence = sentence;
    mText->SetValue(To16(sentence));
    mText->UI_SetToolTip(moxcore::Utf8String(sentence), moxui::skins::GetToolTipDelay());
    mButton->SetTextLabel(runs ? Text16("$$$/playground/progress/cancel=Cancel")
                               : Text16("$$$/playground/audio/dismiss=Dismiss"));
    mBar->SetFraction(runs ? mSession.Exports().Current()->Progress() : 0.0);
    mBar->UI_Show(runs);
    LayOut();
    UI_Invalidate();
  }
  mWasRunning = runs;
  if (ends && mEnded) {
    mEnded(mSentence);
  }
  return !mSentence.empty();
}

bool ExportBar::UI_DoTimerNotify(int id) {
  if (id != kLookTimer) {
    return UI_SubView::UI_DoTimerNotify(id);
  }
  Update();
  return true;
}

void ExportBar::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  float const buttonLeft = own.width - kButtonWidth - kEdgeWidth;
  float const barLeft = buttonLeft - (IsRunning() ? kBarWidth + kGroupGap : 0.0f) - kGroupGap;
  auto const place = [&own](moxui::ui::UI_Node& node, RectT<float> const& rect) {
    node.UI_SetLocalRectF(Placed(rect, own.width));
  };
  place(*mText, {kInset, 0.0f, std::max(barLeft - kInset, 0.0f), own.height});
  place(*mBar, {barLeft + kGroupGap, 0.0f, kBarWidth, own.height});
  place(*mButton, {buttonLeft, (own.height - kButtonHeight) / 2.0f, kButtonWidth, kButtonHeight});
}

void ExportBar::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  LayOut();
}

void ExportBar::UI_Draw(moxui::scriber::Scriber* scriber) const {
  RectT<float> const own = UI_GetLocalRectF(false);
  moxui::utils::DrawRect(scriber, own, ThemeColor(moxui::ui::ThemeColorID::kGray3));
  if (mSession.Exports().HasFailed()) {
    moxui::utils::DrawRect(scriber, Placed({0.0f, 0.0f, kEdgeWidth, own.height}, own.width),
                           {1.0f, 0.0f, 0.0f, 0.75f});
  }
  UI_SubView::UI_Draw(scriber);
}

}  // namespace playground
