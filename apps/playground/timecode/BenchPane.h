#pragma once

#include "timecode/TimecodeHost.h"

#include <moxcore/messaging/Message.h>
#include <moxcore/string/ImmutableString.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/ui/UI_SubView.h>

#include <memory>

namespace playground {

class CountedField;
class EventLog;
class EventLogView;
class PropertyPanel;
class RadialDial;
class StationEar;
class TimecodeBench;
struct BenchSettings;

// A timecode field whose every option is worked by hand. Around it: its host, which pushes how times are
// shown; a second field on the same station of formats, which follows; a radial controller to which both
// are connected; and what all of them tell. A turn goes to the field under the pointer, so that the wheel
// over a field turns the controller.
class BenchPane : public moxui::ui::UI_SubView {
 public:
  // Both outlive the pane. The log hears what is changed by the panel.
  BenchPane(TimecodeBench& bench, EventLog& log);
  ~BenchPane() override;

  CountedField& Field() const;
  CountedField& Follower() const;
  RadialDial& Dial() const;
  EventLogView& Messages() const;
  PropertyPanel& Panel() const;
  // Puts another field in the place of the one that is there, which may be telling something just now.
  void RenewField();

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  bool UI_DoPrePointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;

 private:
  moxcore::utility::IntrusivePtr<CountedField> MakeField(std::uint32_t identifier,
                                                         moxcore::Utf8String const& name);
  void AddPanel(EventLog& log);
  void ReplaceField();
  void SetFieldUp();
  void Tell(BenchSettings const& before);
  void KeepOwnRate();
  void SettingsChanged(BenchSettings const& before);
  void Hear(moxcore::messaging::Message const& message);
  void HearTime(CountedField& field, moxmediaui::TickTime time);
  void LayOut();

  TimecodeBench& mBench;
  std::shared_ptr<TimecodeHost> mHost = std::make_shared<TimecodeHost>();
  moxcore::ImmutableString mDisplayStation;
  moxcore::utility::IntrusivePtr<StationEar> mEar;
  moxcore::utility::IntrusivePtr<CountedField> mField;
  moxcore::utility::IntrusivePtr<CountedField> mFollower;
  moxcore::utility::IntrusivePtr<RadialDial> mDial;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mHint;
  moxcore::utility::IntrusivePtr<EventLogView> mMessages;
  moxcore::utility::IntrusivePtr<PropertyPanel> mPanel;
};

}  // namespace playground
