#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/geometry/Flags.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/skins/ButtonComponents.h>
#include <moxui/skins/DrawButtonFace.h>

namespace moxui::ui {
class ThemeProvider;
}

namespace moxui::skins {

class SkinSet;

/// Everything that the drawing of one button depends on. A new object stands for an idle button of the
/// running look; its setters return nothing and check nothing.
class DrawButtonParameters {
 public:
  DrawButtonParameters();
  /// As the V7 look describes a button, in a state (the bits of GetControlState).
  DrawButtonParameters(ButtonComponents const& components, Flags<unsigned int> state);

  /// Back to an idle button; rectangle, face, theme and skin set stay.
  void SetDefaults();

  void SetControlState(Flags<unsigned int> state) { mState = state; }
  Flags<unsigned int> GetControlState() const { return mState; }
  /// The container is the button's own ground and frame. Without it only the face and the focus ring are
  /// drawn.
  void SetDrawContainer(bool draws) { mDrawContainer = draws; }
  bool ShouldDrawContainer() const { return mDrawContainer; }
  /// Whether it shows in the state at hand: that of a quiet button only while it is active or selected.
  bool ShowsContainer() const;
  /// Toggled on, or the default button of its window.
  void SetSelectedAppearance(bool selected) { mComponents.SetSelected(selected); }
  bool HasSelectedAppearance() const { return mComponents.IsSelected(); }
  /// The classic look's ground runs from light to dark downward; rotated, sideways.
  void SetRotatedGradient(bool rotated) { mRotatedGradient = rotated; }
  bool HasRotatedGradient() const { return mRotatedGradient; }
  /// Width of the frame in pixels; 0 for none.
  void SetStrokeSize(float size) { mStrokeSize = size; }
  float GetStrokeSize() const { return mStrokeSize; }
  void SetCornerRadius(float radius) { mCornerRadius = radius; }
  float GetCornerRadius() const { return mCornerRadius; }
  void SetRectF(RectT<float> const& rect) { mRect = rect; }
  RectT<float> const& GetRectF() const { return mRect; }
  /// How far the face is moved from the container.
  void SetOffset(PointT<float> offset) { mOffset = offset; }
  PointT<float> GetOffset() const { return mOffset; }
  /// Null draws no face.
  void SetDrawButtonFace(moxcore::utility::IntrusivePtr<DrawButtonFace> face);
  moxcore::utility::IntrusivePtr<DrawButtonFace> const& GetDrawButtonFace() const { return mFace; }
  /// Null means the running theme.
  void SetTheme(ui::ThemeProvider const* provider) { mTheme = provider; }
  ui::ThemeProvider const* GetTheme() const { return mTheme; }
  void SetSkinSet(SkinSet const& skinSet) { mSkinSet = &skinSet; }
  SkinSet const& GetSkinSet() const { return *mSkinSet; }
  ButtonComponents& Components() { return mComponents; }
  ButtonComponents const& Components() const { return mComponents; }
  /// A ground and frame even where the button is quiet and idle.
  void SetDisplayBorderAlways(bool displays) { mDisplayBorderAlways = displays; }
  bool ShouldDisplayBorderAlways() const { return mDisplayBorderAlways; }
  /// Whether the focus ring belongs to the drawing.
  void SetDrawFocus(bool draws) { mDrawFocus = draws; }
  bool ShouldDrawFocus() const { return mDrawFocus; }

 private:
  ButtonComponents mComponents;
  Flags<unsigned int> mState;
  RectT<float> mRect;
  PointT<float> mOffset;
  float mStrokeSize = 1.0f;
  float mCornerRadius = 0.0f;
  moxcore::utility::IntrusivePtr<DrawButtonFace> mFace;
  ui::ThemeProvider const* mTheme = nullptr;
  SkinSet const* mSkinSet;
  bool mDrawContainer = true;
  bool mRotatedGradient = false;
  bool mDisplayBorderAlways = false;
  bool mDrawFocus = true;
};

}  // namespace moxui::skins
