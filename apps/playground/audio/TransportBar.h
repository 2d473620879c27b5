#pragma once

#include "audio/AudioSession.h"
#include "audio/PlayFollow.h"
#include "audio/Playhead.h"
#include "audio/PlayheadField.h"
#include "audio/Transport.h"

#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/ui/UI_SubView.h>

#include <memory>
#include <string>

namespace playground {

// Buttons for playback below a waveform, with the time of the playhead, a field that moves it and what there
// is to tell. While it plays, it has the playhead moved for each frame of the picture, and the view follow
// it.
class TransportBar : public moxui::ui::UI_SubView {
 public:
  TransportBar(AudioSession& session, Transport& transport);
  ~TransportBar() override;

  // Lies over the waveform, in the same rectangle; belongs into the tree above it.
  moxcore::utility::IntrusivePtr<Playhead> const& Line() const { return mLine; }
  // The session has changed so.
  void SessionChanged(SessionChanges changes);

  moxui::controls::UI_PictureButton& ToStart() const;
  moxui::controls::UI_PictureButton& Play() const;
  moxui::controls::UI_PictureButton& Stop() const;
  moxui::controls::UI_PictureButton& ToEnd() const;
  moxui::controls::UI_PictureButton& Loop() const;
  PlayheadField& Position() const { return *mPosition; }
  moxcore::Utf16String const& TimeText() const { return mTime->GetValue(); }
  // Speed or trouble; empty when there is nothing to tell.
  std::string StatusText() const;

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  void UI_NodeChanged(moxui::ui::NodeChange change) override;
  bool UI_DoTimerNotify(int id) override;

 private:
  class Button;
  moxcore::utility::IntrusivePtr<Button> AddButton();
  void TransportChanged();
  void ShowButtons();
  void ShowPosition();
  void FollowPlayhead(double position);
  void LayOut();

  AudioSession& mSession;
  Transport& mTransport;
  PlayFollow mFollow;
  bool mIsFollowing = false;  // the view is being changed from here
  bool mWasPlaying = false;
  bool mTicks = false;
  moxcore::utility::IntrusivePtr<Playhead> mLine;
  moxcore::utility::IntrusivePtr<Button> mToStart;
  moxcore::utility::IntrusivePtr<Button> mPlay;
  moxcore::utility::IntrusivePtr<Button> mStop;
  moxcore::utility::IntrusivePtr<Button> mToEnd;
  moxcore::utility::IntrusivePtr<Button> mLoop;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mTime;
  moxcore::utility::IntrusivePtr<PlayheadField> mPosition;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mStatus;
};

}  // namespace playground
