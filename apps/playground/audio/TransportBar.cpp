#include "audio/TransportBar.h"

#include "audio/TimeRuler.h"
#include "audio/TransportIcons.h"
#include "program/Localized.h"
#include "program/NumberText.h"
#include "program/SteadyTime.h"
#include "shell/Listening.h"
#include "shell/Named.h"
#include "shell/Painting.h"
#include "timecode/FieldHeight.h"

#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_PictureButton;
using moxui::controls::UI_StaticText;
using moxui::ui::FontIndex;

constexpr int kFrameTimer = 1;
constexpr float kFramePeriod = 16.0f;  // milliseconds
constexpr float kButtonWidth = 28.0f;
constexpr float kButtonGap = 4.0f;
constexpr float kGroupWidth = 5.0f * kButtonWidth + 4.0f * kButtonGap;
constexpr float kTimeWidth = 96.0f;
constexpr float kPositionWidth = 96.0f;

}  // namespace

// A picture button that says what it does.
class TransportBar::Button : public UI_PictureButton {
 public:
  void Show(TransportIcon icon, std::string const& name, std::string const& key) {
    moxcore::Utf8String const text(name);
    if (text == mName) {
      return;
    }
    mName = text;
    SetImageSupplyFunction(IconOf(icon));
    UI_SetToolTip(
        moxcore::Utf8String(Text(
            "$$$/playground/transport/tip=@0 (@1)#{comment}What a button does, and its key", {name, key})),
        moxui::skins::GetToolTipDelay());
    UI_TellAccessibleChange(moxui::ui::AccessibleChange::kName);
  }
  moxcore::Utf8String UI_GetAccessibleName() const override { return mName; }

 private:
  moxcore::Utf8String mName;
};

moxcore::utility::IntrusivePtr<TransportBar::Button> TransportBar::AddButton() {
  auto button = MakeIntrusive<Button>();
  button->SetWantsKeyboardFocus(true);
  // By hand it is pressed without taking the keys from the waveform.
  button->SetChangeFocusOnClick(false);
  ChildPushBack(button);
  return button;
}

TransportBar::TransportBar(AudioSession& session, Transport& transport)
    : mSession(session), mTransport(transport), mLine(MakeIntrusive<Playhead>()) {
  mToStart = AddButton();
  mPlay = AddButton();
  mStop = AddButton();
  mToEnd = AddButton();
  mLoop = AddButton();
  mLoop->SetButtonStyle(moxui::controls::ButtonStyle::kToggle);
  mTime = MakeIntrusive<Named<UI_StaticText>>(Text("$$$/playground/transport/time=Playhead"));
  mTime->SetFontIndex(FontIndex::kTitle);
  mTime->SetAlignment(Leading());
  mStatus = MakeIntrusive<UI_StaticText>();
  mStatus->SetAlignment(Leading());
  mStatus->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  mPosition = MakeIntrusive<PlayheadField>(mSession, mTransport);
  ChildPushBack(mTime);
  ChildPushBack(mPosition);
  ChildPushBack(mStatus);

  mToStart->Show(TransportIcon::kToStart, Text("$$$/playground/transport/toStart=To start"),
                 Text("$$$/playground/transport/key/home=Home"));
  mStop->Show(TransportIcon::kStop, Text("$$$/playground/transport/stop=Stop"),
              Text("$$$/playground/transport/key/escape=Escape"));
  mToEnd->Show(TransportIcon::kToEnd, Text("$$$/playground/transport/toEnd=To end"),
               Text("$$$/playground/transport/key/end=End"));
  mLoop->Show(TransportIcon::kLoop, Text("$$$/playground/transport/loop=Loop the selection"), "R");

  WhenChanged(*mToStart, this, [](TransportBar& bar) { bar.mTransport.ToStart(); });
  WhenChanged(*mPlay, this, [](TransportBar& bar) { bar.mTransport.PlayOrPause(); });
  WhenChanged(*mStop, this, [](TransportBar& bar) { bar.mTransport.Stop(); });
  WhenChanged(*mToEnd, this, [](TransportBar& bar) { bar.mTransport.ToEnd(); });
  WhenChanged(*mLoop, this, [](TransportBar& bar) { bar.mTransport.SetLoops(bar.mLoop->GetValue()); });
  mTransport.SetListener(this, [this] { TransportChanged(); });
  TransportChanged();
}

TransportBar::~TransportBar() {
  mTransport.RemoveListener(this);
}

UI_PictureButton& TransportBar::ToStart() const {
  return *mToStart;
}
UI_PictureButton& TransportBar::Play() const {
  return *mPlay;
}
UI_PictureButton& TransportBar::Stop() const {
  return *mStop;
}
UI_PictureButton& TransportBar::ToEnd() const {
  return *mToEnd;
}
UI_PictureButton& TransportBar::Loop() const {
  return *mLoop;
}

void TransportBar::UI_NodeChanged(moxui::ui::NodeChange change) {
  UI_SubView::UI_NodeChanged(change);
  if (change == moxui::ui::NodeChange::kAttached && mTransport.NeedsTicks()) {
    UI_InstallTimer(kFramePeriod, kFrameTimer);
  }
}

bool TransportBar::UI_DoTimerNotify(int id) {
  if (id != kFrameTimer) {
    return UI_SubView::UI_DoTimerNotify(id);
  }
  mTransport.Tick();
  ShowPosition();
  return true;
}

void TransportBar::SessionChanged(SessionChanges changes) {
  mTransport.SessionChanged(changes);
  if (changes.Has(SessionChange::kView) && !mIsFollowing) {
    mFollow.ViewChanged(mSession.View(), mTransport.Position(), SteadyTime());
  }
  if (changes.HasAny(SessionChange::kDocument | SessionChange::kPeaks)) {
    ShowButtons();
    mPosition->TakeDocument();
  }
  ShowPosition();
}

void TransportBar::TransportChanged() {
  if (mTransport.IsPlaying() != mWasPlaying) {
    mWasPlaying = mTransport.IsPlaying();
    if (mWasPlaying) {
      mFollow.Begin();
    }
  }
  if (mTransport.NeedsTicks() != mTicks) {
    mTicks = mTransport.NeedsTicks();
    if (mTicks) {
      UI_InstallTimer(kFramePeriod, kFrameTimer);
    } else {
      UI_RemoveTimer(kFrameTimer);
    }
  }
  ShowButtons();
  ShowPosition();
}

std::string TransportBar::StatusText() const {
  std::string trouble = mTransport.TroubleText();
  double const speed = mTransport.Speed();
  if (!trouble.empty() || speed == 1.0) {
    return trouble;
  }
  return speed > 0.0 ? Text("$$$/playground/transport/forward=Forward, @0×", {TextFromNumber(speed, 2)})
                     : Text("$$$/playground/transport/backward=Backward, @0×", {TextFromNumber(-speed, 2)});
}

void TransportBar::ShowButtons() {
  bool const playing = mTransport.IsPlaying();
  std::string const key = Text("$$$/playground/transport/key/space=Space");
  if (playing) {
    mPlay->Show(TransportIcon::kPause, Text("$$$/playground/transport/pause=Pause"), key);
  } else {
    mPlay->Show(TransportIcon::kPlay, Text("$$$/playground/transport/play=Play"), key);
  }
  mLoop->SetValue(mTransport.Loops());
  bool const hasSound = mSession.HasSound() && mSession.Current().Source() != nullptr;
  for (Button* const button : {mToStart.Get(), mPlay.Get(), mToEnd.Get(), mLoop.Get()}) {
    button->UI_SetEnabled(hasSound);
  }
  mPosition->UI_SetEnabled(hasSound);
  mStop->UI_SetEnabled(mTransport.IsActive());
  std::string const status = StatusText();
  mStatus->SetValue(To16(status));
  mStatus->UI_SetToolTip(moxcore::Utf8String(status), moxui::skins::GetToolTipDelay());
}

void TransportBar::ShowPosition() {
  int const rate = mSession.Current().SampleRate();
  double const position = mTransport.Position();
  mTime->SetValue(rate > 0 ? To16(playground::TimeText(position / rate, 0.001)) : moxcore::Utf16String());
  mPosition->ShowPosition();
  if (mTransport.IsPlaying() && !mIsFollowing) {
    FollowPlayhead(position);
  }
  Viewport const& view = mSession.View();
  std::int64_t const column = view.PixelOf(position);
  bool const shows = mTransport.IsActive() && column >= 0 && column < view.Width();
  mLine->SetColumn(shows ? std::optional(static_cast<int>(column)) : std::nullopt);
}

void TransportBar::FollowPlayhead(double position) {
  if (auto const left = mFollow.Follow(mSession.View(), position, mTransport.Speed() > 0.0, SteadyTime())) {
    mIsFollowing = true;
    mSession.ChangeView([left](Viewport& view) { view.ScrollTo(*left); }, ViewStep::kFollow);
    mIsFollowing = false;
  }
}

void TransportBar::LayOut() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (own.IsEmpty()) {
    return;
  }
  auto const place = [&own](moxui::ui::UI_Node& node, float left, float width) {
    node.UI_SetLocalRectF(Placed({left, 0.0f, std::max(width, 0.0f), own.height}, own.width));
  };
  // Time runs from left to right in every language: the buttons stand together at the leading side, but in
  // the same order.
  RectT<float> const group = Placed({0.0f, 0.0f, kGroupWidth, own.height}, own.width);
  float left = group.left;
  for (Button* const button : {mToStart.Get(), mPlay.Get(), mStop.Get(), mToEnd.Get(), mLoop.Get()}) {
    button->UI_SetLocalRectF({left, 0.0f, kButtonWidth, own.height});
    left += kButtonWidth + kButtonGap;
  }
  float const time = kGroupWidth + kGroupGap;
  place(*mTime, time, kTimeWidth);
  float const position = time + kTimeWidth + kGroupGap;
  mPosition->UI_SetLocalRectF(Placed({position, std::floor((own.height - kTimecodeFieldHeight) / 2.0f),
                                      kPositionWidth, kTimecodeFieldHeight},
                                     own.width));
  float const status = position + kPositionWidth + kGroupGap;
  place(*mStatus, status, own.width - status);
}

void TransportBar::UI_SizeChanged(RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  LayOut();
}

}  // namespace playground
