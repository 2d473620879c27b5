// Loading a directory of presets, against reading and parsing the same files with nothing else.
#include "Figure.h"

#include <moxappsupport/LocalPresets.h>
#include <moxcore/filesupport/Dir.h>
#include <moxcore/serialization/JSON.h>
#include <moxmediaui/AudioChannelLayoutPresetData.h>
#include <moxmediaui/PresetCache.h>

#include <fcntl.h>
#include <rapidjson/document.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace moxappsupport::presets;
using bench::DoNotOptimize;
using moxcore::Utf8String;
using moxmediaui::AudioChannelLayoutPresetData;
using Cache = PresetCache<AudioChannelLayoutPresetData, DirBasedStorage>;

constexpr int kPresets = 10'000;
constexpr std::uint32_t kLeft = 100;

// A directory of so many presets of six channels, gone with the object.
class Directory {
 public:
  Directory() : mBase((std::filesystem::temp_directory_path() / "mox-preset-bench-XXXXXX").string()) {
    if (mkdtemp(mBase.data()) == nullptr) {
      std::perror("no directory for the presets");
      std::exit(1);
    }
    SetLocalPresetsBaseDir(moxcore::filesupport::Dir(Utf8String(mBase)));
    const auto folder = mBase + "/AudioChannelLayout/";
    std::filesystem::create_directory(folder);
    for (int i = 0; i < kPresets; ++i) {
      mPaths.push_back(folder + "Layout " + std::to_string(i) + ".preset");
      std::ofstream(mPaths.back()) << Text(i);
    }
  }
  ~Directory() {
    SetLocalPresetsBaseDir(std::nullopt);
    std::error_code error;
    std::filesystem::remove_all(mBase, error);
  }
  Directory(const Directory&) = delete;
  Directory& operator=(const Directory&) = delete;

  const std::vector<std::string>& Paths() const { return mPaths; }

 private:
  static std::string Text(int number) {
    Preset<AudioChannelLayoutPresetData> preset;
    preset.guid = moxcore::Guid::CreateUnique();
    preset.type = moxcore::Guid(Utf8String("d11e182d-f09c-4d27-871c-0034a7d2e3f8"));
    preset.name = Utf8String("Layout " + std::to_string(number));
    for (std::uint32_t i = 0; i < 6; ++i) {
      preset.data.channelLayout.emplace_back(kLeft + i);
    }
    return std::string(moxcore::serialization::GetJSONUTF8String(PresetToJSON(preset), false));
  }

  std::string mBase;
  std::vector<std::string> mPaths;
};

std::string ReadFile(const std::string& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  fstat(descriptor, &status);
  std::string text(static_cast<std::size_t>(status.st_size), '\0');
  if (read(descriptor, text.data(), text.size()) != status.st_size) {
    std::perror(path.c_str());
    std::exit(1);
  }
  close(descriptor);
  return text;
}

template <class Parse>
auto ReadAll(const Directory& directory, Parse parse) {
  return [&directory, parse] {
    for (const auto& path : directory.Paths()) {
      parse(ReadFile(path));
    }
  };
}

void ParseByPeer(const std::string& text) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag>(text.data(),
                                                                                         text.size());
  DoNotOptimize(document.IsObject());
}

void ParseByHost(const std::string& text) {
  DoNotOptimize(moxcore::serialization::JSONParse(text.data(), text.size()).get());
}

}  // namespace

int main(int argc, char** argv) {
  bench::Figures figures(argc, argv);
  if (figures.Wants("preset_store") || figures.Wants("preset_store_against_bare_parser")) {
    const Directory directory;
    Cache cache(u"AudioChannelLayout", u".preset");
    const auto load = [&cache] {
      cache.Reload();
      DoNotOptimize(cache.GetSkippedFiles().size());
    };
    if (cache.GetPresets().size() != kPresets) {
      std::fputs("not every preset was loaded\n", stderr);
      return 1;
    }
    figures.Compare({.name = "preset_store",
                     .numerator = load,
                     .denominator = ReadAll(directory, ParseByHost),
                     .bar = 2,
                     .unit = "ms"});
    // The packaged parser makes trees of its own that need far fewer allocations, and keeps nothing of them.
    figures.Compare({.name = "preset_store_against_bare_parser",
                     .numerator = load,
                     .denominator = ReadAll(directory, ParseByPeer),
                     .unit = "ms"});
  }
  return figures.Result();
}
