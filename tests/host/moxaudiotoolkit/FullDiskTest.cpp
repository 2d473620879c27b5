#include "TemporaryFolder.h"
#include "peaks/MadeUpSources.h"

#include <moxaudiotoolkit/AudioFileError.h>
#include <moxaudiotoolkit/AudioFileWriter.h>
#include <moxaudiotoolkit/WaveFileWriter.h>
#include <moxaudiotoolkit/peaks/PeakCache.h>
#include <moxaudiotoolkit/peaks/PeakDataFile.h>
#include <moxaudiotoolkit/peaks/PeakPyramid.h>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace moxaudiotoolkit {
namespace {

using testing::TemporaryFolder;

constexpr int kDiskKilobytes = 64;

// What came of a writing: what was told of it, and what the folder holds afterwards.
struct Outcome {
  std::string reason;
  std::string left;
};

using Writing = std::function<std::string(const std::string& folder)>;

// Whether the folder is now a disk of its own that is soon full, for this process alone.
bool MountSmallDisk(const std::string& folder) {
  if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
    return false;
  }
  mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr);
  const std::string options = "size=" + std::to_string(kDiskKilobytes) + "k";
  return mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

// Where no disk can be had, files can't grow beyond its size: the same for one file.
void LimitFiles() {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{kDiskKilobytes * 1024, kDiskKilobytes * 1024};
  setrlimit(RLIMIT_FSIZE, &limit);
}

void Send(int pipe, const std::string& text) {
  if (write(pipe, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
    _exit(1);
  }
}

std::string FilesIn(const std::string& folder) {
  std::string names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) {
      names += entry.path().filename().string() + " " + std::to_string(entry.file_size()) + "\n";
    }
  }
  return names;
}

// Writes on a small disk, in a process of its own.
Outcome WriteOnSmallDisk(const std::string& folder, const Writing& writing) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t child = fork();
  if (child == 0) {
    if (!MountSmallDisk(folder)) {
      LimitFiles();
    }
    const std::string reason = writing(folder);
    Send(ends[1], reason + "\n" + FilesIn(folder));
    _exit(0);
  }
  close(ends[1]);
  std::string text;
  char block[4096];
  for (ssize_t got = 0; (got = read(ends[0], block, sizeof block)) > 0;) {
    text.append(block, static_cast<std::size_t>(got));
  }
  close(ends[0]);
  int status = -1;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  const std::size_t end = text.find('\n');
  return {text.substr(0, end), text.substr(end + 1)};
}

std::string ReasonOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const AudioFileError& error) {
    return error.GetFault() == AudioFileFault::kNotWritable ? error.GetReason() : "another fault";
  }
  return "nothing";
}

class FullDisk : public ::testing::Test {
 protected:
  // Of a full disk, and of a file that can't grow.
  static bool TellsOfRoom(const std::string& reason) {
    return reason.find("there is no space left on the disk") != std::string::npos ||
           reason.find("files can't be that large there") != std::string::npos;
  }
  static void WriteOld(const std::string& path) { std::ofstream(path) << "old"; }

  TemporaryFolder mFolder;
};

TEST_F(FullDisk, WavesThatDoNotFitAreRefusedAtOnce) {
  const Outcome outcome = WriteOnSmallDisk(mFolder.GetPath(), [](const std::string& folder) {
    WriteOld(folder + "/a.wav");
    return ReasonOf([&] {
      WaveFileWriter writer(
          folder + "/a.wav",
          {.type = WaveSampleType::kFloat32, .sampleRate = 48000, .channelCount = 2, .frames = 10'000});
      for (int i = 0; i < 100; ++i) {
        writer.Write(std::vector<float>(200));
      }
      writer.Commit();
    });
  });
  EXPECT_TRUE(TellsOfRoom(outcome.reason)) << outcome.reason;
  EXPECT_EQ(outcome.left, "a.wav 3\n");
}

TEST_F(FullDisk, DecoderFilesThatDoNotFitLeaveTheOldOne) {
  const Outcome outcome = WriteOnSmallDisk(mFolder.GetPath(), [](const std::string& folder) {
    WriteOld(folder + "/a.wav");
    return ReasonOf([&] {
      const std::vector<std::vector<float>> channels(2, std::vector<float>(100'000, 0.25F));
      WriteAudioFile(folder + "/a.wav", AudioFileFormat::kWavFloat, 48000, channels);
    });
  });
  EXPECT_FALSE(outcome.reason.empty());
  EXPECT_NE(outcome.reason, "nothing");
  EXPECT_EQ(outcome.left, "a.wav 3\n");
}

TEST_F(FullDisk, PeakFilesThatDoNotFitLeaveTheOldOne) {
  const Outcome outcome = WriteOnSmallDisk(mFolder.GetPath(), [](const std::string& folder) {
    WriteOld(folder + "/a.dat");
    return ReasonOf([&] {
      WritePeakData(folder + "/a.dat", {.sampleRate = 48000,
                                        .samplesPerPixel = 256,
                                        .channelCount = 1,
                                        .length = 50'000,
                                        .values = PeakValues(100'000, 0)});
    });
  });
  EXPECT_TRUE(TellsOfRoom(outcome.reason)) << outcome.reason;
  EXPECT_EQ(outcome.left, "a.dat 3\n");
}

TEST_F(FullDisk, PeaksThatCannotBeKeptAreToldOfAndTheOldOnesStay) {
  const auto small = testing::BuildPyramid(testing::NoiseSource(1000, 1));
  const auto large = testing::BuildPyramid(testing::NoiseSource(2'000'000, 1));
  constexpr PeakCacheKey kKey{1000, 2, 3};
  const Outcome outcome = WriteOnSmallDisk(mFolder.GetPath(), [&](const std::string& folder) {
    const PeakCache cache(folder);
    const std::string first = cache.Store(kKey, 1, *small);
    const std::string second = cache.Store(kKey, 1, *large);
    return first + second + (cache.Load(kKey, small->GetFormat()).pyramid == nullptr ? "gone" : "");
  });
  EXPECT_TRUE(TellsOfRoom(outcome.reason)) << outcome.reason;
  EXPECT_EQ(outcome.reason.find("gone"), std::string::npos);
  EXPECT_EQ(std::ranges::count(outcome.left, '\n'), 1) << outcome.left;
}

}  // namespace
}  // namespace moxaudiotoolkit
