#include "audio/Exporter.h"

#include "audio/AudioSession.h"
#include "channels/LayoutTexts.h"
#include "exporting/SelectionExport.h"
#include "program/Localized.h"

#include <moxaudiotoolkit/peaks/PeakPyramid.h>
#include <moxmediatypes/WaveChannelMask.h>

#include <cmath>
#include <cstddef>
#include <filesystem>
#include <utility>
#include <vector>

namespace playground {
namespace {

std::vector<std::size_t> ChannelsThatAreOn(AudioSession const& session) {
  std::vector<std::size_t> channels;
  for (std::size_t channel = 0; channel < session.Current().ChannelCount(); ++channel) {
    if (session.IsChannelEnabled(channel)) {
      channels.push_back(channel);
    }
  }
  return channels;
}

// What a WAV file says of the channels that are on. A sound without a layout says nothing.
moxmediatypes::WaveMaskResult MaskOfExport(AudioSession const& session) {
  moxmediatypes::AudioChannelLayout const layout = session.Layout();
  std::vector<std::size_t> const channels = ChannelsThatAreOn(session);
  moxmediatypes::AudioChannelLayout written;
  for (std::size_t const channel : channels) {
    written.push_back(channel < layout.size() ? layout[channel] : moxmediatypes::AudioChannelDescription());
  }
  auto result = moxmediatypes::GetWaveChannelMask(written);
  if (result.fault != moxmediatypes::WaveMaskFault::kNone) {
    result.channel = channels[result.channel];
    result.earlier = channels[result.earlier];
  }
  return result;
}

std::string WaveTitle(AudioSession const& session) {
  std::size_t const count = session.Current().ChannelCount();
  std::size_t const on = ChannelsThatAreOn(session).size();
  bool const whole = session.Selection().IsEmpty();
  if (on == count) {
    return whole ? Text("$$$/playground/export/wholeTitle=Export the whole sound")
                 : Text("$$$/playground/export/selectionTitle=Export the selection");
  }
  std::string const some = std::to_string(on);
  std::string const all = std::to_string(count);
  return whole ? Text("$$$/playground/export/wholeChannelsTitle=Export the whole sound, @0 of @1 channels",
                      {some, all})
               : Text("$$$/playground/export/selectionChannelsTitle=Export the selection, @0 of @1 channels",
                      {some, all});
}

std::string FileName(AudioSession const& session, ExportKind kind) {
  std::string const stem = std::filesystem::path(session.Current().Title()).stem().string();
  if (kind != ExportKind::kWave) {
    return stem + ".dat";
  }
  return session.Selection().IsEmpty() ? Text("$$$/playground/export/copyName=@0 copy.wav", {stem})
                                       : Text("$$$/playground/export/selectionName=@0 selection.wav", {stem});
}

std::string NameOf(FileExport const& file) {
  return std::filesystem::path(file.Path()).filename().string();
}

}  // namespace

bool CanExport(AudioSession const& session, ExportKind kind) {
  if (session.Exports().IsRunning()) {
    return false;
  }
  AudioDocument const& document = session.Current();
  if (kind == ExportKind::kWave) {
    return document.Source() && document.Frames() > 0 && !ChannelsThatAreOn(session).empty();
  }
  return document.Pyramid() && document.Pyramid()->IsComplete() && document.Frames() > 0;
}

std::string ExportProblem(AudioSession const& session, ExportKind kind) {
  auto const result = kind == ExportKind::kWave ? MaskOfExport(session) : moxmediatypes::WaveMaskResult();
  return result.fault == moxmediatypes::WaveMaskFault::kNone
             ? std::string()
             : Text(
                   "$$$/playground/export/refused=Not exported: no WAV file can have this channel layout. @0",
                   {WaveFaultText(session.Layout(), result)});
}

moxui::platform::FileRequest RequestForExport(AudioSession const& session, ExportKind kind) {
  moxui::platform::FileRequest request;
  std::filesystem::path const folder = std::filesystem::path(session.Current().Path()).parent_path();
  request.startPath = moxcore::Utf8String((folder / FileName(session, kind)).string());
  if (kind == ExportKind::kWave) {
    request.title = To16(WaveTitle(session));
    request.kinds = {{Text16("$$$/playground/export/waveKind=WAV files"), {"*.wav"}}};
    request.defaultSuffix = "wav";
  } else {
    request.title = Text16("$$$/playground/export/peaksTitle=Export the peaks");
    request.kinds = {{Text16("$$$/playground/export/peaksKind=Peak files"), {"*.dat"}}};
    request.defaultSuffix = "dat";
  }
  return request;
}

void Exporter::Start(AudioSession const& session, ExportKind kind, std::string const& path) {
  if (!CanExport(session, kind)) {
    return;
  }
  std::string problem = ExportProblem(session, kind);
  if (path.empty() && problem.empty()) {
    return;
  }
  mExport.reset();
  mProblem = std::move(problem);
  if (!mProblem.empty()) {
    return;
  }
  AudioDocument const& document = session.Current();
  if (kind != ExportKind::kWave) {
    mExport = std::make_unique<FileExport>(
        path, ExportOfPeaks(document.Pyramid(), path, kind == ExportKind::kPeaks8));
    return;
  }
  SampleSelection const& selection = session.Selection();
  bool const whole = selection.IsEmpty();
  mExport = std::make_unique<FileExport>(
      path, ExportOfSelection({.source = document.Source(),
                               .begin = whole ? 0 : selection.Left(),
                               .end = whole ? document.Frames() : selection.Left() + selection.Width(),
                               .channels = ChannelsThatAreOn(session),
                               .path = path,
                               .channelMask = MaskOfExport(session).mask}));
}

void Exporter::Cancel() {
  if (mExport) {
    mExport->Cancel();
  }
}

void Exporter::Dismiss() {
  if (!IsRunning()) {
    mExport.reset();
    mProblem.clear();
  }
}

bool Exporter::IsRunning() const {
  return mExport && mExport->GetState() == FileExport::State::kRunning;
}

bool Exporter::HasFailed() const {
  return !mProblem.empty() || (mExport && mExport->GetState() == FileExport::State::kFailed);
}

std::string Exporter::Sentence() const {
  if (!mExport) {
    return mProblem;
  }
  std::string const name = NameOf(*mExport);
  switch (mExport->GetState()) {
    case FileExport::State::kRunning:
      return Text("$$$/playground/export/running=Exporting @0: @1 %",
                  {name, std::to_string(static_cast<int>(std::floor(mExport->Progress() * 100.0)))});
    case FileExport::State::kDone:
      return Text("$$$/playground/export/done=Exported @0.", {name});
    case FileExport::State::kCancelled:
      return Text("$$$/playground/export/cancelled=The export of @0 was cancelled.", {name});
    case FileExport::State::kFailed:
      break;
  }
  return Text("$$$/playground/export/failed=@0 could not be exported: @1", {name, mExport->Problem()});
}

}  // namespace playground
