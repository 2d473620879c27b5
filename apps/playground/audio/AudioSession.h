#pragma once

#include "audio/AudioDocument.h"
#include "audio/Exporter.h"
#include "audio/SampleSelection.h"
#include "audio/SelectionZoom.h"
#include "audio/ViewHistory.h"
#include "audio/Viewport.h"
#include "audio/WaveformSettings.h"
#include "shell/MainThreadBell.h"

#include <moxmediatypes/AudioChannels.h>
#include <moxui/geometry/Flags.h>

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace playground {

// What became different in a session, as bits.
namespace SessionChange {
inline constexpr unsigned kDocument = 1;   // another sound, or more of them; everything else follows from it
inline constexpr unsigned kView = 2;       // the part that is shown
inline constexpr unsigned kSelection = 4;  // what is selected
inline constexpr unsigned kSettings = 8;   // how it is drawn
inline constexpr unsigned kFailures = 16;  // files that couldn't be opened or read
inline constexpr unsigned kPeaks = 32;     // more of the current sound is known, or the work on it goes on
inline constexpr unsigned kExport = 128;   // an export has begun, or is forgotten
inline constexpr unsigned kHistory = 256;  // whether there is something to undo or to redo
inline constexpr unsigned kLayout = 512;   // what the channels are called
}  // namespace SessionChange
using SessionChanges = moxui::Flags<unsigned>;

// The sounds that are open and how the current one is looked at. It outlives the views that show it, which
// are made anew with another language or look.
class AudioSession {
 public:
  // Begins with the program's own sound.
  AudioSession();
  AudioSession(AudioSession const&) = delete;
  AudioSession& operator=(AudioSession const&) = delete;
  // How files that are opened from now on get their peaks; onChange is the session's.
  void SetPeaksOptions(moxaudiotoolkit::FilePeaksOptions options) { mPeaksOptions = std::move(options); }

  std::vector<AudioDocument> const& Documents() const { return mDocuments; }
  // The number of documents stands for no sound at all, and so does a document without channels.
  std::size_t CurrentIndex() const { return mCurrent; }
  AudioDocument const& Current() const;
  bool HasSound() const { return Current().ChannelCount() > 0; }
  void ShowDocument(std::size_t index);
  // Has files opened on other threads and returns. What can be opened joins the documents in the order of
  // `paths`, and the first of it is shown; the rest joins the failures. Failures of an earlier call are
  // forgotten.
  void OpenFiles(std::vector<std::string> const& paths);
  // Shows a sound that is open already.
  void AddDocument(AudioDocument document);
  // Files that are still being opened.
  std::vector<AudioDocument> const& Opening() const { return mOpening; }
  // Returns when all files are opened or have failed, or, further, when all peaks are there: for programs
  // and tests that don't run an event loop.
  void WaitForOpening();
  void WaitForPeaks();
  // Gives up the files that are still being opened.
  void CancelOpening();
  // Ends the work on the current sound's peaks, or begins it anew.
  void CancelPeaks();
  void RestartPeaks();
  // Takes over what other threads have done by now; happens by itself where an event loop runs.
  void Refresh() { TakeNews(); }
  // Looks whether files have changed, and has the peaks of those that have made anew.
  void PollForChanges();

  // Files that couldn't be opened, or be read to their end while another sound was shown: beside the document
  // itself there is no need of telling.
  std::vector<OpenFailure> const& Failures() const { return mFailures; }
  void ForgetFailures();
  // Documents whose file was opened and then couldn't be read to its end. The part that could be is shown.
  std::vector<OpenFailure> UnreadDocuments() const;
  // Whether other threads are at work on any file.
  bool IsReading() const;
  // Hears of each file that can't be opened or be read to its end, when it is known; of one that is read once
  // more, only if the reason is another or the user had it read again.
  void SetFailureFunction(std::function<void(OpenFailure const&)> function) {
    mFailureFunction = std::move(function);
  }

  Viewport const& View() const { return mView; }
  SampleSelection const& Selection() const { return mSelection; }
  WaveformSettings const& Settings() const { return mSettings; }
  // Each calls `change` and tells the listener if anything became different. Changes of the view and of the
  // selection are steps that can be undone, but for another width of the view, which is the window's doing.
  void ChangeView(std::function<void(Viewport&)> const& change, ViewStep step = ViewStep::kSingle);
  void ChangeSelection(std::function<void(SampleSelection&)> const& change,
                       ViewStep step = ViewStep::kSingle);
  void ChangeSettings(std::function<void(WaveformSettings&)> const& change);

  // The current document's steps. Without one to go to, and during a drag, nothing happens: false.
  bool CanUndo() const { return CurrentPlaces().history.CanUndo(); }
  bool CanRedo() const { return CurrentPlaces().history.CanRedo(); }
  bool Undo();
  bool Redo();
  // What comes between them is one step; they nest. ViewDrag calls them.
  void BeginDrag();
  void EndDrag();
  // Ends it where it began, without a step.
  void CancelDrag();

  // Shows the selection, or where it is shown already what was shown before it.
  void ToggleSelectionZoom();
  bool CanToggleSelectionZoom() const { return CurrentPlaces().zoom.CanToggle(mSelection); }
  // Shows what was shown before the selection.
  void LeaveSelectionZoom();

  // What is being exported, or was. Work on it goes on whatever is shown.
  Exporter const& Exports() const { return mExporter; }
  void Export(ExportKind kind, std::string const& path);
  void CancelExport() { mExporter.Cancel(); }
  void DismissExport();

  // What the channels of the current sound are: the layout that was chosen for it, else that of its file;
  // empty where nobody says.
  moxmediatypes::AudioChannelLayout Layout() const;
  // Chooses one. False, and nothing changes, unless it has as many channels as the sound.
  bool SetLayout(moxmediatypes::AudioChannelLayout layout);

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
  void Join(AudioDocument document);
  SessionChanges TakeOpened();
  SessionChanges TakeUnread(std::size_t index);
  void Hear(OpenFailure const& failure);
  bool ForgetFailuresOf(std::string const& file);
  void ForgetGivenUp();
  void TakeNews();

  // How a document was left, and the ways through it.
  struct Places {
    ViewHistory history;
    SelectionZoom zoom;
    std::optional<ViewPlace> left;
  };
  Places const& CurrentPlaces() const;
  Places& CurrentPlaces() { return mPlaces[mCurrent]; }
  void LeaveCurrent();
  void ReturnToPlace();
  void Note(ViewPlace const& before, ViewStep step);
  // The place in the view's width and the sound's length of now.
  ViewPlace Fitted(ViewPlace place) const;
  bool GoTo(std::optional<ViewPlace> const& target);

  MainThreadBell mBell;  // rung by threads that work for the documents
  moxaudiotoolkit::FilePeaksOptions mPeaksOptions;
  std::vector<AudioDocument> mDocuments;
  std::vector<AudioDocument> mOpening;
  std::vector<AudioDocument> mGivenUp;  // until their threads have ended
  bool mShowsNextOpened = false;
  std::size_t mCurrent = 0;
  std::vector<OpenFailure> mFailures;
  std::map<std::size_t, std::string> mUnread;  // why documents couldn't be read, as far as it was told
  std::function<void(OpenFailure const&)> mFailureFunction;
  Viewport mView;
  SampleSelection mSelection;
  std::map<std::size_t, Places> mPlaces;                              // by the number of the document
  std::map<std::size_t, moxmediatypes::AudioChannelLayout> mLayouts;  // that were chosen
  WaveformSettings mSettings;
  Exporter mExporter;
  void const* mListenerOwner = nullptr;
  std::function<void(SessionChanges)> mListener;
};

}  // namespace playground
