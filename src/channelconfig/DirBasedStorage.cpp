#include <moxappsupport/LocalPresets.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/debug/Trace.h>
#include <moxcore/filesupport/FileUtils.h>
#include <moxcore/filesupport/PlatformByteStream.h>
#include <moxcore/filesupport/SafeSave.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/ModuleResources.h>
#include <moxmediaui/PresetCache.h>

#include <limits>
#include <string_view>

namespace moxappsupport::presets {

namespace {

using moxcore::Utf16String;
using moxcore::Utf8String;
using moxcore::filesupport::File;
using moxcore::filesupport::IPlatformByteStream;
using moxcore::filesupport::SafeSave;
namespace FileUtils = moxcore::filesupport::FileUtils;

constexpr std::string_view kDefaultPresetName = "$$$/app/Presets/DefaultPresetName=(Default)";
constexpr std::uint64_t kLongestFile = std::numeric_limits<std::uint32_t>::max();
// Other processes may take a name before it is used, but hardly so often.
constexpr int kNameAttempts = 100;

void TraceLine(std::string_view text, File const& file) {
  static moxcore::debug::TraceCategory const kCategory("moxcore.presets");
  constexpr moxcore::debug::TraceLevel kLevel{2};
  if (moxcore::debug::TraceEnabled(kCategory, kLevel)) {
    moxcore::debug::Trace(kLevel, kCategory, Utf8String(text) + file.FullPath() + "\r\n");
  }
}

// Writes a file that is there. Where nothing was before, failing leaves nothing behind.
bool Replace(std::function<Utf8String()> const& text, File const& file, bool isNew) noexcept {
  try {
    try {
      SafeSave save(file);
      FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), text());
      save.Commit();
      return true;
    } catch (...) {
      if (isNew) {
        file.Delete();
      }
      throw;
    }
  } catch (...) {
    return false;
  }
}

char const sAddressInThisModule = 0;

}  // namespace

DirBasedStorage::DirBasedStorage(Utf16String const& family, Utf16String extension)
    : mDir(GetLocalPresetsBaseDir(), family, false), mExtension(std::move(extension)) {
  // Where it can't be made, nothing can be listed or written, and those operations tell so.
  FileUtils::EnsureDirectoryExists(mDir.FullPath());
  SafeSave::DeleteLeftovers(mDir);
}

bool DirBasedStorage::CollectPresetFiles(std::vector<File>& files) {
  mFiles.clear();
  mSkipped.clear();
  return CollectFiles(mDir, mExtension, files);
}

void DirBasedStorage::Skip(File const& file, SkipReason reason, char const* detail) {
  mSkipped.push_back({file, reason, detail});
}

std::optional<Utf8String> DirBasedStorage::ReadText(File const& file) {
  try {
    IPlatformByteStream stream(file, IPlatformByteStream::kRead);
    auto const length = stream.Length();
    if (length > kLongestFile) {
      Skip(file, SkipReason::kTooLong, "more than 4294967295 bytes");
      return std::nullopt;
    }
    Utf8String text(static_cast<std::size_t>(length), '\0');
    stream.ReadBlock(text.data(), length);
    return text;
  } catch (std::exception const& exception) {
    Skip(file, file.Exists() ? SkipReason::kUnreadable : SkipReason::kGone, exception.what());
    return std::nullopt;
  }
}

void DirBasedStorage::MarkDefaultPreset(PresetRecord& preset) {
  if (preset.name == kDefaultPresetName) {
    preset.flags |= PresetFlagDefault;
  }
}

void DirBasedStorage::TraceRepair(File const& file) {
  TraceLine("Fixing preset with duplicate GUID: ", file);
}

void DirBasedStorage::TraceFailedRepair(File const& file) {
  TraceLine("Error writing preset file: ", file);
}

bool DirBasedStorage::WriteFile(TextMaker const& text, File const& file) noexcept {
  try {
    return Replace(text, file, file.Create(false));
  } catch (...) {
    return false;
  }
}

bool DirBasedStorage::WriteRecordedOrNewFile(PresetRecord const& preset, TextMaker const& text) noexcept {
  try {
    if (auto const recorded = mFiles.find(preset.guid); recorded != mFiles.end()) {
      return WriteFile(text, recorded->second);
    }
    auto const name = moxcore::string::UTF8to16(LocalizedPresetName(preset));
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
      auto const file = GetFileWithUniqueName(mDir, name, mExtension);
      // Made here and now: else another process may have taken the name, and its preset would be lost.
      if (!file.Create(false)) {
        continue;
      }
      if (!Replace(text, file, true)) {
        return false;
      }
      mFiles.emplace(preset.guid, file);
      return true;
    }
    return false;
  } catch (...) {
    return false;
  }
}

bool DirBasedStorage::DeletePresetFile(PresetRecord const& preset) {
  auto const recorded = mFiles.find(preset.guid);
  if (recorded == mFiles.end()) {
    return false;
  }
  try {
    recorded->second.Delete();
  } catch (...) {
    return false;
  }
  mFiles.erase(recorded);
  return true;
}

Utf8String DirBasedStorage::EmbeddedListText(Utf16String const& family) {
  auto const name = moxcore::string::UTF16to8(family) + "Presets";
  moxcore::utility::ResourceBytes bytes;
  moxcore::utility::GetBinaryFromModule(moxcore::utility::ModuleHandle::FromAddress(&sAddressInThisModule),
                                        moxcore::utility::ResourceType("json"),
                                        moxcore::utility::ResourceName(name), bytes);
  return Utf8String(bytes.begin(), bytes.end());
}

}  // namespace moxappsupport::presets
