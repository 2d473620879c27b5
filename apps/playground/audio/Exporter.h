#pragma once

#include "exporting/FileExport.h"

#include <moxui/platform/FileDialogs.h>

#include <memory>
#include <string>

namespace playground {

class AudioSession;

enum class ExportKind {
  kWave,  // the selection, or the whole sound where nothing is selected; channels that are on
  kPeaks16,
  kPeaks8,
};

// Whether the session's sound can be exported so: WAV files need samples and a channel that is on, peak files
// all of the peaks. Nothing can while another export runs.
bool CanExport(AudioSession const& session, ExportKind kind);

// Why the session's sound can't be exported so, though it is there: a WAV file can't say the layout that its
// channels have. A sentence, empty when all is well.
std::string ExportProblem(AudioSession const& session, ExportKind kind);

// What the user is asked for the file with, which says what will be in it.
moxui::platform::FileRequest RequestForExport(AudioSession const& session, ExportKind kind);

// What a session exports, one file at a time: while one is being written no other begins.
class Exporter {
 public:
  // Where there is a problem, tells of it and begins nothing.
  void Start(AudioSession const& session, ExportKind kind, std::string const& path);
  void Cancel();
  // Forgets an export that has ended.
  void Dismiss();

  bool IsRunning() const;
  // Whether there is something to tell, until it is dismissed; and whether that is a failure.
  bool HasNews() const { return mExport || !mProblem.empty(); }
  bool HasFailed() const;
  // Null when there is none; one that has ended stays until it is dismissed.
  FileExport* Current() const { return mExport.get(); }
  // How it goes, or went, in a sentence; empty when there is none.
  std::string Sentence() const;

 private:
  std::string mProblem;
  std::unique_ptr<FileExport> mExport;
};

}  // namespace playground
