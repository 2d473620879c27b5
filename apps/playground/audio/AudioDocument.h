#pragma once

#include <moxaudiotoolkit/peaks/FilePeaks.h>
#include <moxmediatypes/AudioChannels.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace playground {

// Why a file couldn't be opened, for the user.
struct OpenFailure {
  std::string file;
  std::string reason;

  // Both in one sentence.
  std::string Sentence() const;
};

// A sound that is open: where its samples and peaks are to be had, and what to call it. Samples are read
// piece by piece; the peaks of a file grow while other threads read it. What a document tells stands still
// until it is refreshed, so that all who look in between see the same. Main thread only.
class AudioDocument {
 public:
  using State = moxaudiotoolkit::FilePeaks::State;

  // No sound.
  AudioDocument();
  // A file, its path in UTF-8. Returns at once: another thread opens it. The document has channels from then
  // on when it could be opened.
  AudioDocument(std::string path, moxaudiotoolkit::FilePeaksOptions options);
  // A sound that is in memory, with its peaks; without a title it is the one that the program makes itself.
  // Where there are but peaks the source is null.
  AudioDocument(std::string title, std::shared_ptr<moxaudiotoolkit::SampleSource const> source,
                std::shared_ptr<moxaudiotoolkit::PeakPyramid const> pyramid);
  ~AudioDocument();
  AudioDocument(AudioDocument&&) noexcept;
  AudioDocument& operator=(AudioDocument&&) noexcept;

  // Empty for a sound that is no file.
  std::string const& Path() const { return mPath; }
  // A file's name without its folder.
  std::string Title() const;
  // Format, channels, rate and length in one line; empty without a sound.
  std::string Summary() const;

  // The samples; null until the file has been opened. May be read on any thread; where IsParallel() is
  // false reading decodes, which is no work for the main thread.
  std::shared_ptr<moxaudiotoolkit::SampleSource const> const& Source() const { return mSource; }
  // The peaks as far as they are known; may be null after the source is there. They go on growing without a
  // refresh.
  std::shared_ptr<moxaudiotoolkit::PeakPyramid const> const& Pyramid() const { return mPyramid; }

  std::size_t ChannelCount() const;
  std::int64_t Frames() const;     // samples per channel
  int SampleRate() const;          // frames per second; 0 without a sound
  double Duration() const;         // seconds
  std::string FormatName() const;  // container and encoding in words, as the file's reader calls them
  // What the file says of its channels; empty where it says nothing.
  moxmediatypes::AudioChannelLayout Layout() const;

  // The fewest samples to a column that a picture of it has any use for.
  double FinestZoom() const;

  // How far the peaks are.
  State CurrentState() const { return mState; }
  double Progress() const;  // from 0 to 1
  bool CameFromCache() const { return mPeaks && mPeaks->CameFromCache(); }
  // Why opening or reading failed or peaks couldn't be kept; empty when all is well.
  std::string const& Problem() const { return mProblem; }
  // Why it couldn't be opened or read to its end, in one piece with the file's name.
  OpenFailure Failure() const;

  // Takes over what other threads have done. True if that is another sound: one of another length, rate,
  // number of channels or format.
  bool Refresh();
  // Ends the work on the peaks soon; what there is stays.
  void Cancel();
  // Does the work anew, after it was cancelled or has failed.
  void Restart();
  // The same if the file has changed; true then.
  bool PollForChange();
  // Returns when no thread works on the peaks any more.
  void WaitForPeaks();

 private:
  std::string mPath;
  std::string mTitle;
  std::unique_ptr<moxaudiotoolkit::FilePeaks> mPeaks;  // null for what is no file
  std::shared_ptr<moxaudiotoolkit::SampleSource const> mSource;
  std::shared_ptr<moxaudiotoolkit::PeakPyramid const> mPyramid;
  State mState = State::kDone;
  std::string mProblem;
};

// The sound that the program makes itself.
AudioDocument DemoDocument();

}  // namespace playground
