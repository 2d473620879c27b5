#pragma once

#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <string>

namespace playground {

class AudioSession;
class ProgressBar;

// A line that tells how an export goes and how it went, with a button that cancels it and, once it has ended,
// dismisses the line. Looks by itself while the export runs.
class ExportBar : public moxui::ui::UI_SubView {
 public:
  explicit ExportBar(AudioSession& session);
  ~ExportBar() override;

  // Hears the last words of each export.
  void SetEndFunction(std::function<void(std::string const&)> function) { mEnded = std::move(function); }
  // Looks at the session again; true when there is something to tell.
  bool Update();
  moxui::controls::UI_TextButton& Button() const { return *mButton; }
  std::string Sentence() const { return mSentence; }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  bool UI_DoTimerNotify(int id) override;

 private:
  bool IsRunning() const;
  void LayOut();

  AudioSession& mSession;
  std::function<void(std::string const&)> mEnded;
  std::string mSentence;
  bool mWasRunning = false;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mText;
  moxcore::utility::IntrusivePtr<ProgressBar> mBar;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextButton> mButton;
};

}  // namespace playground
