#pragma once

#include <moxui/ui/UI_SubView.h>

#include <optional>

namespace moxui::controls {

enum class ChromeType { kOutline = 0, kFilled = 1, kNone = 2 };

/// A frame around what belongs together, drawn inside its rectangle, below its children. It takes no input.
class UI_OutlineBox : public ui::UI_SubView {
 public:
  UI_OutlineBox();
  ~UI_OutlineBox() override;

  /// A frame alone, as at first; a frame on a ground of its own; or nothing.
  void SetChromeType(ChromeType type);
  ChromeType GetChromeType() const { return mChromeType; }
  /// In logical pixels; empty: that of the skin set.
  void SetCornerRadius(std::optional<float> radius);
  /// Width of the frame, 1 at first; 0 for none.
  void SetStrokeSize1(float size);
  /// Width of a second, fainter line inside of it, 0 at first.
  void SetStrokeSize2(float size);
  float GetStrokeSize1() const { return mStrokeSize1; }
  float GetStrokeSize2() const { return mStrokeSize2; }

  void UI_Draw(scriber::Scriber* scriber) const override;

 private:
  template <typename T>
  void StoreVisual(T& field, T const& value);

  std::optional<float> mCornerRadius;
  float mStrokeSize1 = 1.0f;
  float mStrokeSize2 = 0.0f;
  ChromeType mChromeType = ChromeType::kOutline;
};

}  // namespace moxui::controls
