#include "Scenarios.h"

#include <moxcore/config/Errors.h>
#include <moxcore/filesupport/FileUtils.h>
#include <moxcore/filesupport/SafeSave.h>

#include <exception>

namespace faults {

namespace {

using moxcore::Utf8String;
using moxcore::filesupport::File;
using moxcore::filesupport::SafeSave;
namespace FileUtils = moxcore::filesupport::FileUtils;
using tests::ScratchFolder;

constexpr const char* kTarget = "target";

std::string Payload(std::size_t size, char first) {
  std::string text(size, first);
  for (std::size_t i = 1; i < size; ++i) {
    text[i] = static_cast<char>(first + i % 7);
  }
  return text;
}

bool SaveSafely(const ScratchFolder& folder, const std::string& text) {
  try {
    SafeSave save(File(Utf8String(folder / kTarget)));
    FileUtils::SimpleWriteStringToFile(save.GetTempFile().FullPath(), text);
    save.Commit();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool SavePlainly(const ScratchFolder& folder, const std::string& text) {
  try {
    FileUtils::SimpleWriteStringToFile(Utf8String(folder / kTarget), text);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// `before` is empty where there is no file before.
Verdict Judge(const ScratchFolder& folder, const std::string& before, const std::string& after,
              bool acknowledged, bool failed) {
  const bool exists = folder.Has(kTarget);
  const std::string text = exists ? folder.Read(kTarget) : "";
  const bool isOld = before.empty() ? !exists : text == before;
  const bool isNew = exists && text == after;
  Verdict verdict;
  verdict.isTorn = !isOld && !isNew;
  verdict.isLost = !before.empty() && !exists;
  verdict.isFalse = acknowledged && !isNew;
  verdict.isLeft = failed && folder.Names().size() > (exists ? 1u : 0u);
  verdict.detail = exists ? std::to_string(text.size()) + " bytes" : "no file";
  return verdict;
}

Scenario SaveScenario(const std::string& name, std::size_t size, bool overwrites,
                      bool (*save)(const ScratchFolder&, const std::string&)) {
  const std::string before = overwrites ? Payload(size / 2 + 3, 'a') : "";
  const std::string after = Payload(size, 'A');
  return {
      .name = name,
      .prepare =
          [before](const ScratchFolder& folder) {
            if (!before.empty()) {
              folder.Write(kTarget, before);
            }
          },
      .change = [after, save](const ScratchFolder& folder) { return save(folder, after); },
      .judge = [before, after](const ScratchFolder& folder, bool acknowledged,
                               bool failed) { return Judge(folder, before, after, acknowledged, failed); }};
}

}  // namespace

std::vector<Scenario> SafeSaveScenarios() {
  std::vector<Scenario> scenarios;
  for (const std::size_t size : {1u, 2u, 100u, 4095u, 4096u, 4097u, 16384u, 65536u, 262144u, 1048576u}) {
    for (const bool overwrites : {true, false}) {
      scenarios.push_back(SaveScenario("SafeSave of " + std::to_string(size) + " bytes" +
                                           (overwrites ? " over a file" : " where there is none"),
                                       size, overwrites, SaveSafely));
    }
  }
  return scenarios;
}

Scenario PlainSaveScenario() {
  return SaveScenario("plain save of 4096 bytes over a file", 4096, true, SavePlainly);
}

}  // namespace faults
