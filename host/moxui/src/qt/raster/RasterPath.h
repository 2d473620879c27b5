#pragma once

#include <moxui/scriber/PathInterface.h>

#include <cstdint>
#include <vector>

namespace moxui::qt {

/// A path as its commands: flattened for each drawing at the scale in force.
class RasterPath final : public scriber::PathInterface {
 public:
  enum class Verb : std::uint8_t { kMove, kLine, kArc, kCubic, kClose };

  void MoveTo(PointT<float> point) override;
  void LineTo(PointT<float> point) override;
  void AddArc(PointT<float> centre, float radius, float start, float sweep) override;
  void CubicTo(PointT<float> handle1, PointT<float> handle2, PointT<float> point) override;
  void AddRect(RectT<float> const& rect) override;
  void Close() override;

  std::vector<Verb> const& GetVerbs() const { return mVerbs; }
  /// For each verb: move and line 1 point, arc 3 (centre; radius and nothing; start and sweep in degrees),
  /// cubic 3, close none.
  std::vector<PointT<float>> const& GetPoints() const { return mPoints; }
  /// The rectangle that the path consists of, if it is one and nothing else.
  bool IsRect(RectT<float>& rect) const;

  /// A rectangle that holds all of it.
  RectT<double> GetBounds() const;

  bool HasSameOutline(RasterPath const& other) const {
    return mVerbs == other.mVerbs && mPoints == other.mPoints;
  }

 private:
  void BeginIfNeeded();

  std::vector<Verb> mVerbs;
  std::vector<PointT<float>> mPoints;
  PointT<float> mBegin;  // where a segment after a close begins
  bool mOpen = false;
};

}  // namespace moxui::qt
