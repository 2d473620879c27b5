#pragma once

#include <cstdint>

namespace playground {

// What is selected in a sound: the samples between a fixed end, the anchor, and a moving one, the head. Where
// both meet there is only a place, as of a text cursor. Both stay within the sound.
class SampleSelection {
 public:
  std::int64_t Anchor() const { return mAnchor; }
  std::int64_t Head() const { return mHead; }
  std::int64_t Left() const { return mAnchor < mHead ? mAnchor : mHead; }
  std::int64_t Width() const { return mAnchor < mHead ? mHead - mAnchor : mAnchor - mHead; }
  bool IsEmpty() const { return mAnchor == mHead; }

  // A new sound: nothing is selected, and the place is its beginning.
  void SetFrames(std::int64_t frames);
  void PlaceAt(std::int64_t sample);
  void ExtendTo(std::int64_t sample);
  void Select(std::int64_t anchor, std::int64_t head);
  void SelectAll() { Select(0, mFrames); }
  // Nothing selected; the place stays where the head was.
  void Clear() { mAnchor = mHead; }
  // The end nearer to `sample` becomes the head, the other one the anchor.
  void TakeNearerEnd(std::int64_t sample);

  bool operator==(SampleSelection const&) const = default;

 private:
  std::int64_t Within(std::int64_t sample) const;

  std::int64_t mFrames = 0;
  std::int64_t mAnchor = 0;
  std::int64_t mHead = 0;
};

}  // namespace playground
