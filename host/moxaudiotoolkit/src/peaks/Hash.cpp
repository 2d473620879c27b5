#include "Hash.h"

#include <array>
#include <bit>
#include <cstring>

namespace moxaudiotoolkit {
namespace {

constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
constexpr std::size_t kLaneCount = 4;  // so many multiplications go on at once
constexpr std::size_t kStripe = kLaneCount * sizeof(std::uint64_t);

std::uint64_t Mixed(std::uint64_t lane, std::uint64_t word) {
  return std::rotl((lane ^ word) * kFactor, 29);
}

}  // namespace

std::uint64_t HashBytes(std::span<const std::uint8_t> bytes, std::uint64_t seed) {
  std::array<std::uint64_t, kLaneCount> lanes{seed + 1, seed + 2, seed + 3, seed + 4};
  std::array<std::uint64_t, kLaneCount> words{};
  std::size_t at = 0;
  for (; at + kStripe <= bytes.size(); at += kStripe) {
    std::memcpy(words.data(), bytes.data() + at, kStripe);
    for (std::size_t i = 0; i < kLaneCount; ++i) {
      lanes[i] = Mixed(lanes[i], words[i]);
    }
  }
  words = {};
  if (at < bytes.size()) {
    std::memcpy(words.data(), bytes.data() + at, bytes.size() - at);
  }
  std::uint64_t hash = seed ^ bytes.size();
  for (std::size_t i = 0; i < kLaneCount; ++i) {
    hash = Mixed(hash, Mixed(lanes[i], words[i]));
    hash ^= hash >> 32;
  }
  hash *= kFactor;
  return hash ^ hash >> 29;
}

}  // namespace moxaudiotoolkit
