#include <moxaudiotoolkit/AudioFileError.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/string/TextOperations.h>

#include <cstddef>

namespace moxaudiotoolkit {
namespace {

// what() would end at a zero byte.
std::string Printable(std::string name) {
  for (std::size_t at = name.find('\0'); at != std::string::npos; at = name.find('\0', at)) {
    name.replace(at, 1, "\\0");
  }
  return name;
}

std::string Localised(std::string_view literal, const std::vector<std::string>& values) {
  moxcore::Utf8String text = moxcore::config::Localizer::Get().GetUTF8String(literal);
  for (std::size_t i = 0; i < values.size(); ++i) {
    moxcore::string::ReplaceInString(text, "@" + std::to_string(i), values[i]);
  }
  return {text.begin(), text.end()};
}

moxcore::Utf8String Text(const std::string& soundFile, const std::string& reason) {
  return moxcore::Utf8String("\"" + Printable(soundFile) + "\": " + reason);
}

}  // namespace

AudioFileError::AudioFileError(AudioFileFault fault, const std::string& soundFile, std::string_view literal,
                               const std::vector<std::string>& values)
    : mox_exception(moxcore::config::ErrorLevel::kError, __FILE__, __LINE__, moxcore::Utf8String(literal),
                    true, Text(soundFile, Localised(literal, values))),
      mFault(fault),
      mSoundFile(soundFile),
      mReason(Localised(literal, values)) {}

}  // namespace moxaudiotoolkit
