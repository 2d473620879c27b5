#include "presets/WaveformPreview.h"

#include "audio/AudioNotices.h"
#include "audio/AudioSession.h"
#include "audio/WaveformPainter.h"
#include "program/Localized.h"

namespace playground {

WaveformPreview::WaveformPreview(AudioSession const& session)
    : mSession(session), mPainter(std::make_unique<WaveformPainter>(session, [this] { UI_Invalidate(); })) {}

WaveformPreview::~WaveformPreview() = default;

void WaveformPreview::Settle() {
  mPainter->Settle();
}

void WaveformPreview::UI_Draw(moxui::scriber::Scriber* scriber) const {
  mPainter->Draw(*scriber, UI_GetLocalRectF(false));
  if (!mSession.HasSound()) {
    DrawNoSound(scriber, UI_GetLocalRectF(false), mSession.Settings());
  }
}

moxui::ui::AccessibleRole WaveformPreview::UI_GetAccessibleRole() const {
  return moxui::ui::AccessibleRole::kImage;
}

moxcore::Utf8String WaveformPreview::UI_GetAccessibleName() const {
  return moxcore::Utf8String(
      Text("$$$/playground/audio/waveformName=Waveform of @0", {mSession.Current().Title()}));
}

}  // namespace playground
