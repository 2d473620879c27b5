#pragma once

#include "audio/AudioDocument.h"
#include "audio/SampleSelection.h"
#include "audio/Viewport.h"
#include "audio/WaveformSettings.h"

#include <moxui/geometry/Flags.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace playground {

// What became different in a session, as bits.
namespace SessionChange {
inline constexpr unsigned kDocument = 1;   // another sound, or more of them; everything else follows from it
inline constexpr unsigned kView = 2;       // the part that is shown
inline constexpr unsigned kSelection = 4;  // what is selected
inline constexpr unsigned kSettings = 8;   // how it is drawn
inline constexpr unsigned kFailures = 16;  // files that couldn't be opened
}  // namespace SessionChange
using SessionChanges = moxui::Flags<unsigned>;

// The sounds that are open and how the current one is looked at. It outlives the views that show it, which
// are made anew with another language or look.
class AudioSession {
 public:
  // Begins with the program's own sound.
  AudioSession();

  std::vector<AudioDocument> const& Documents() const { return mDocuments; }
  // The number of documents stands for no sound at all, and so does a document without channels.
  std::size_t CurrentIndex() const { return mCurrent; }
  AudioDocument const& Current() const;
  bool HasSound() const { return Current().ChannelCount() > 0; }
  void ShowDocument(std::size_t index);
  // Opens what can be opened and shows the first of it; the rest is added to the failures. Failures of an
  // earlier call are forgotten. True if all went well.
  bool OpenFiles(std::vector<std::string> const& paths);

  std::vector<OpenFailure> const& Failures() const { return mFailures; }
  void ForgetFailures();

  Viewport const& View() const { return mView; }
  SampleSelection const& Selection() const { return mSelection; }
  WaveformSettings const& Settings() const { return mSettings; }
  // Each calls `change` and tells the listener if anything became different.
  void ChangeView(std::function<void(Viewport&)> const& change);
  void ChangeSelection(std::function<void(SampleSelection&)> const& change);
  void ChangeSettings(std::function<void(WaveformSettings&)> const& change);

  // Whether the view is drawn from single samples rather than from peaks.
  bool DrawsSamples() const;
  bool IsChannelEnabled(std::size_t channel) const;
  void ToggleChannel(std::size_t channel);

  // One listener, the page that is open. A newer owner's takes the place of an older one's.
  void SetListener(void const* owner, std::function<void(SessionChanges)> listener);
  // Nothing happens once another owner listens.
  void RemoveListener(void const* owner);

 private:
  void Tell(SessionChanges changes);
  void Begin(std::size_t index);

  std::vector<AudioDocument> mDocuments;
  std::size_t mCurrent = 0;
  std::vector<OpenFailure> mFailures;
  Viewport mView;
  SampleSelection mSelection;
  WaveformSettings mSettings;
  void const* mListenerOwner = nullptr;
  std::function<void(SessionChanges)> mListener;
};

}  // namespace playground
