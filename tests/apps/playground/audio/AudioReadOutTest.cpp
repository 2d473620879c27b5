#include "audio/AudioReadOut.h"
#include "audio/AudioSession.h"

#include <moxaudiotoolkit/DecodedAudio.h>
#include <moxaudiotoolkit/peaks/PeakBuilder.h>
#include <moxaudiotoolkit/peaks/SampleSource.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace playground {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// Six channels, the pointer at their beginning.
class AudioReadOutTest : public testing::Test {
 protected:
  AudioReadOutTest() {
    auto const source = moxaudiotoolkit::MakeSampleSource(std::make_shared<moxaudiotoolkit::DecodedAudio>(
        48000, std::vector<std::vector<float>>(6, std::vector<float>(1000))));
    moxaudiotoolkit::PeakBuilder builder(source);
    builder.Wait();
    session.AddDocument({"six", source, builder.GetPyramid()});
  }

  std::string LineOf(std::size_t mostCharacters) const {
    return AudioReadOut(
        session, 0, [](std::size_t, int) { return ShownLevel{.amplitude = 0.5f, .rms = 0.25f}; },
        [=](std::string const& line) { return line.size() <= mostCharacters; });
  }

  AudioSession session;
};

TEST_F(AudioReadOutTest, TellsAllWhereThereIsRoom) {
  EXPECT_THAT(LineOf(1000), AllOf(HasSubstr("sample 0"), HasSubstr("RMS"), HasSubstr("-6.0 | -12.0")));
}

TEST_F(AudioReadOutTest, LeavesOutWhatMattersLeastAndNoChannel) {
  std::string const whole = LineOf(1000);
  std::size_t last = whole.size();
  for (std::size_t room = whole.size() - 1; room >= 70; room -= 10) {
    std::string const line = LineOf(room);
    EXPECT_LE(line.size(), last);
    last = line.size();
    std::size_t levels = 0;
    for (std::size_t at = line.find("-6.0"); at != std::string::npos; at = line.find("-6.0", at + 1)) {
      ++levels;
    }
    EXPECT_EQ(levels, 6u) << line;
  }
  EXPECT_THAT(LineOf(70), AllOf(Not(HasSubstr("|")), Not(HasSubstr("sample"))));
}

TEST_F(AudioReadOutTest, TellsThePlaceWhereThereIsNoRoomForLevels) {
  EXPECT_THAT(LineOf(0), AllOf(HasSubstr("sample 0"), Not(HasSubstr("-6.0"))));
}

}  // namespace
}  // namespace playground
