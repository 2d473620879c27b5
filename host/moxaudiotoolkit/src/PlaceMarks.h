#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

namespace moxaudiotoolkit {

// What the samples are at some places of a sound whose decoder comes near to a frame when it jumps, but not
// exactly there: by them it finds out where it is. Noted while the sound is decoded from its start, and
// shared by all openings of a file. May be used from several threads at once.
class PlaceMarks {
 public:
  // Frames between marks, and so the most that is decoded on the way from a mark to a place behind it.
  static constexpr std::int64_t kDistance = std::int64_t{1} << 17;
  // A decoder is never farther off than this.
  static constexpr std::int64_t kFarthestMiss = std::int64_t{1} << 14;
  // What is decoded around a mark.
  static constexpr std::int64_t kSearchFrames = 2 * kFarthestMiss + 64;

  explicit PlaceMarks(int channelCount) : mChannelCount(static_cast<std::size_t>(channelCount)) {}

  // Frames that were decoded from `firstFrame` on, channels interleaved: those that make a mark are kept.
  void Note(std::int64_t firstFrame, std::span<const float> samples);
  // Of the last mark from which a decoder gets to `frame`.
  std::optional<std::int64_t> FindMark(std::int64_t frame) const;
  // Where the mark at a frame is among frames that were decoded around it, channels interleaved: nothing if
  // it isn't there, or in more than one place.
  std::optional<std::int64_t> FindIn(std::span<const float> samples, std::int64_t markFrame) const;

 private:
  static constexpr std::int64_t kFrames = kSearchFrames - 2 * kFarthestMiss;

  std::size_t mChannelCount;
  mutable std::mutex mMutex;
  std::map<std::int64_t, std::vector<float>> mMarks;  // samples of the first channel, by their frame
};

}  // namespace moxaudiotoolkit
