#pragma once

#include <moxui/geometry/PointT.h>

#include <optional>

namespace moxui::ui {

/// The pointer's place for whoever drags with a hidden pointer: the platform's own is put back from the edge
/// of the screen as often as need be, and its place goes on as if the screen had none. All in one system of
/// coordinates.
class EndlessMotion {
 public:
  /// Whether the place is another one than the platform's.
  bool HasWarped() const { return mHasWarped; }
  PointT<float> GetOffset() const { return mOffset; }
  /// Whether no event has told yet of the place to which the pointer was put.
  bool IsWarpPending() const { return mStaleOffset.has_value(); }

  /// The place that an event of the platform at `real` stands for. Events that were on their way when the
  /// platform's pointer was put elsewhere are told from those that came after by what is nearer.
  PointT<float> Follow(PointT<float> real);
  /// The platform's pointer is being put from `from`, where an event has last told of it, to `to`.
  void Warp(PointT<float> from, PointT<float> to);
  /// It went to a slightly different place.
  void CorrectWarp(PointT<float> to, PointT<float> actual) { mOffset = mOffset + to - actual; }
  /// It didn't go: as before the warp.
  void UndoWarp();
  void Reset() { *this = EndlessMotion(); }

 private:
  PointT<float> mLast;
  PointT<float> mOffset;
  /// Of events that were told before the last warp was done.
  std::optional<PointT<float>> mStaleOffset;
  bool mHasWarped = false;
};

}  // namespace moxui::ui
