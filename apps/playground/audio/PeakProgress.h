#pragma once

#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/ui/UI_SubView.h>

#include <optional>
#include <string>

namespace playground {

class AudioSession;
class ProgressBar;

// How far the reading of sounds is, and what the user can do about it.
struct ProgressReport {
  enum class Action { kNone, kCancelOpening, kCancelPeaks, kRestart };

  std::string text;                // empty when there is nothing to tell
  std::optional<double> fraction;  // from 0 to 1, while it is known
  Action action = Action::kNone;

  bool operator==(ProgressReport const&) const = default;
};

ProgressReport ReportOf(AudioSession const& session);

// A line with that in words, a thin bar and a button. Its page shows it while there is something to tell.
class PeakProgress : public moxui::ui::UI_SubView {
 public:
  explicit PeakProgress(AudioSession& session);
  ~PeakProgress() override;

  // Looks at the session again; true when there is something to tell.
  bool Update();
  ProgressReport const& Report() const { return mReport; }
  moxui::controls::UI_TextButton& Button() const { return *mButton; }
  moxui::ui::UI_Node& Bar() const;

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void LayOut();
  void Act();

  AudioSession& mSession;
  ProgressReport mReport;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mText;
  moxcore::utility::IntrusivePtr<ProgressBar> mBar;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextButton> mButton;
};

}  // namespace playground
