#pragma once

#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/RecordedCall.h>

#include <memory>
#include <vector>

namespace moxui::testing {

/// What a recording supplier and all that it made share.
struct Recording {
  std::vector<RecordedCall> calls;
  int surfaceCount = 0;
  int liveObjects = 0;
};

/// Counts an object among the live ones.
class Recorded {
 public:
  explicit Recorded(std::shared_ptr<Recording> recording) : mRecording(std::move(recording)) {
    ++mRecording->liveObjects;
  }
  ~Recorded() { --mRecording->liveObjects; }
  Recorded(Recorded const&) = delete;
  Recorded& operator=(Recorded const&) = delete;

  void Add(RecordedCall call) const { mRecording->calls.push_back(std::move(call)); }
  std::shared_ptr<Recording> const& Get() const { return mRecording; }

 private:
  std::shared_ptr<Recording> mRecording;
};

class RecordingPath : public scriber::PathInterface {
 public:
  explicit RecordingPath(std::shared_ptr<Recording> recording) : mRecorded(std::move(recording)) {}

  void MoveTo(PointT<float> point) override { Add(RecordedSegment::Kind::kMoveTo, {point}); }
  void LineTo(PointT<float> point) override { Add(RecordedSegment::Kind::kLineTo, {point}); }
  void AddArc(PointT<float> centre, float radius, float start, float sweep) override {
    Add(RecordedSegment::Kind::kArc, {centre}, {radius, start, sweep});
  }
  void CubicTo(PointT<float> handle1, PointT<float> handle2, PointT<float> point) override {
    Add(RecordedSegment::Kind::kCubicTo, {handle1, handle2, point});
  }
  void AddRect(RectT<float> const& rect) override {
    Add(RecordedSegment::Kind::kRect, {rect.TopLeft()}, {rect.width, rect.height});
  }
  void Close() override { Add(RecordedSegment::Kind::kClose, {}); }

  std::vector<RecordedSegment> const& GetSegments() const { return mSegments; }
  /// A rectangle that holds everything; handles of curves and whole circles included.
  RectT<float> GetBounds() const;

 private:
  void Add(RecordedSegment::Kind kind, std::vector<PointT<float>> points, std::vector<float> numbers = {}) {
    mSegments.push_back({kind, std::move(points), std::move(numbers)});
  }

  Recorded mRecorded;
  std::vector<RecordedSegment> mSegments;
};

class RecordingPen : public scriber::PenInterface {
 public:
  RecordingPen(std::shared_ptr<Recording> recording, ColorRGBA const& colour, float width)
      : mRecorded(std::move(recording)), mColour(colour), mWidth(width) {}
  ColorRGBA GetColor() const override { return mColour; }
  float GetWidth() const override { return mWidth; }

 private:
  Recorded mRecorded;
  ColorRGBA mColour;
  float mWidth;
};

/// A brush keeps the call that made it, to be written down again where the brush is used.
class RecordingBrush : public scriber::BrushInterface {
 public:
  RecordingBrush(std::shared_ptr<Recording> recording, RecordedCall making)
      : mRecorded(std::move(recording)), mMaking(std::move(making)) {}
  RecordedCall const& GetMaking() const { return mMaking; }

 private:
  Recorded mRecorded;
  RecordedCall mMaking;
};

class RecordingFont : public scriber::FontInterface {
 public:
  RecordingFont(std::shared_ptr<Recording> recording, std::string name, float size)
      : mRecorded(std::move(recording)), mName(std::move(name)), mSize(size) {}
  float GetAscent() const override { return mSize * 0.8f; }
  float GetDescent() const override { return mSize * 0.2f; }
  float GetWidth(std::u16string_view text) const override {
    return mSize * 0.5f * static_cast<float>(text.size());
  }
  float GetSize() const override { return mSize; }
  std::string const& GetName() const { return mName; }

 private:
  Recorded mRecorded;
  std::string mName;
  float mSize;
};

/// An image over a buffer, whose pixels are read when it is drawn.
class RecordingBufferImage : public scriber::BufferImageInterface {
 public:
  RecordingBufferImage(std::shared_ptr<Recording> recording, RecordedImage const& description, int rowBytes,
                       void* data, scriber::DataDeleter deleter);
  ~RecordingBufferImage() override;
  float GetWidth() const override { return static_cast<float>(mDescription.width); }
  float GetHeight() const override { return static_cast<float>(mDescription.height); }
  int GetPixelWidth() const override { return mDescription.width; }
  int GetPixelHeight() const override { return mDescription.height; }
  void CopyPixels(std::uint8_t* destination, int rowBytes) const override;
  void* GetData() const override { return mData; }
  int GetRowBytes() const override { return mRowBytes; }
  scriber::PixelFormat GetFormat() const override { return mDescription.format; }

 private:
  Recorded mRecorded;
  RecordedImage mDescription;
  int mRowBytes;
  void* mData;
  scriber::DataDeleter mDeleter;
};

/// An image that is nothing but its description: a snapshot, or a file's bytes. Its pixels are transparent.
class RecordingImage : public scriber::ImageInterface {
 public:
  RecordingImage(std::shared_ptr<Recording> recording, RecordedImage description, float scale)
      : mRecorded(std::move(recording)), mDescription(std::move(description)), mScale(scale) {}
  float GetWidth() const override { return static_cast<float>(mDescription.width) / mScale; }
  float GetHeight() const override { return static_cast<float>(mDescription.height) / mScale; }
  int GetPixelWidth() const override { return mDescription.width; }
  int GetPixelHeight() const override { return mDescription.height; }
  void CopyPixels(std::uint8_t* destination, int rowBytes) const override;
  RecordedImage const& GetDescription() const { return mDescription; }

 private:
  Recorded mRecorded;
  RecordedImage mDescription;
  float mScale;
};

class RecordingSurface : public scriber::SurfaceInterface {
 public:
  RecordingSurface(std::shared_ptr<Recording> recording, int width, int height, float scale);

  void SaveState() override;
  void RestoreState() override;
  void Translate(PointT<float> by) override;
  void ClipToRect(RectT<float> const& rect) override;
  void ClipToPath(scriber::PathInterface const& path, scriber::FillRule rule) override;
  RectT<float> GetClipBounds() const override { return mState.clip; }
  void SetSmoothing(scriber::Smoothing smoothing) override;
  scriber::Smoothing GetSmoothing() const override { return mState.smoothing; }
  void SetDrawingMode(scriber::DrawingMode mode) override;
  scriber::DrawingMode GetDrawingMode() const override { return mState.mode; }
  float GetScale() const override { return mScale; }
  void FillRect(RectT<float> const& rect, ColorRGBA const& colour, scriber::EdgeRounding rounding) override;
  void FillPath(scriber::PathInterface const& path, scriber::BrushInterface const& brush,
                scriber::FillRule rule) override;
  void StrokePath(scriber::PathInterface const& path, scriber::PenInterface const& pen) override;
  void DrawImage(scriber::ImageInterface const& image, RectT<float> const& source,
                 RectT<float> const& destination, float opacity) override;
  void DrawImage(scriber::ImageInterface const& image, RectT<float> const& destination,
                 float opacity) override;
  void DrawImage(scriber::ImageInterface const& image, PointT<float> topLeft, float opacity) override;
  void DrawText(std::u16string_view text, PointT<float> baseline, scriber::FontInterface const& font,
                ColorRGBA const& colour, scriber::TextAlignment alignment) override;
  void DrawTextInBox(std::u16string_view text, RectT<float> const& box, scriber::FontInterface const& font,
                     ColorRGBA const& colour, scriber::TextAlignment alignment) override;
  scriber::SurfaceP NewOffscreenSurface(int width, int height) const override;
  scriber::ImageP GetImage() const override;

 private:
  struct State {
    RectT<float> clip;
    scriber::Smoothing smoothing = scriber::Smoothing::kAntiAliased;
    scriber::DrawingMode mode = scriber::DrawingMode::kInterface;
  };

  void Add(RecordedCall call) const;

  Recorded mRecorded;
  int mNumber;
  int mWidth;
  int mHeight;
  float mScale;
  State mState;
  std::vector<State> mSavedStates;
};

}  // namespace moxui::testing
