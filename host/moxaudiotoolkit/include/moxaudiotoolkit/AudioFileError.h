#pragma once

#include <moxcore/config/Errors.h>

#include <string>
#include <string_view>
#include <vector>

namespace moxaudiotoolkit {

enum class AudioFileFault {
  kNotFound,         // no such file or folder
  kNotReadable,      // permission or device error
  kNotAFile,         // a folder, device, pipe or socket
  kEmpty,            // a file of no bytes
  kNotAudio,         // no audio format that can be read
  kDamaged,          // an audio format, with contents that contradict it
  kTruncated,        // cut short: ends before the frames that it promises
  kBadChannelCount,  // none, or more than kMostChannels
  kBadSampleRate,    // none, or above kHighestSampleRate
  kTooLong,          // doesn't fit the memory that the caller allows
  kNotWritable,      // the file couldn't be written
  kCancelled,        // whoever asked for it wants it no more
};

// Why a sound file couldn't be opened, read or written. what() is the name of the file and the reason,
// localised.
class AudioFileError : public moxcore::config::mox_exception {
 public:
  // The reason is a literal for the localizer ($$$/path/key=Default text) with the values in the places @0,
  // @1 ...
  AudioFileError(AudioFileFault fault, const std::string& soundFile, std::string_view literal,
                 const std::vector<std::string>& values = {});

  AudioFileFault GetFault() const { return mFault; }
  // The path or name as given, UTF-8.
  const std::string& GetSoundFile() const { return mSoundFile; }
  // The localised reason alone, without the name of the file.
  const std::string& GetReason() const { return mReason; }

 private:
  AudioFileFault mFault;
  std::string mSoundFile;
  std::string mReason;
};

}  // namespace moxaudiotoolkit
