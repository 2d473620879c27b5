#pragma once

#include <moxui/ui/UI_Node.h>

#include <memory>

namespace playground {

class AudioSession;
class WaveformPainter;

// What a session shows of its sound, in small and to be looked at only.
class WaveformPreview : public moxui::ui::UI_Node {
 public:
  // The session outlives the preview, which is invalidated by its page when the session changes.
  explicit WaveformPreview(AudioSession const& session);
  ~WaveformPreview() override;

  // Waits for samples that are still being read.
  void Settle();

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 private:
  AudioSession const& mSession;
  std::unique_ptr<WaveformPainter> mPainter;
};

}  // namespace playground
