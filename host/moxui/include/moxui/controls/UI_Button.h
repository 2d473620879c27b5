#pragma once

#include <moxui/controls/ControlTypes.h>
#include <moxui/controls/FocusVisibility.h>
#include <moxui/controls/UI_InteractiveControlView.h>
#include <moxui/skins/DrawButtonParameters.h>

#include <optional>
#include <utility>

namespace moxui::controls {

using skins::DrawButtonFace;
using skins::DrawButtonParameters;

enum class ButtonStyle { kPush = 0, kToggle = 1 };

/// A button without content: base of all that is pressed. A click, Space or Enter sends
/// UI_ControlChangedMessage; with the toggle style its value turns first. A press that leaves the button and
/// ends outside does nothing.
class UI_Button : public UI_InteractiveControlView {
 public:
  UI_Button();
  ~UI_Button() override;

  // Value: whether it is on. Silent.
  void SetValue(bool on);
  bool GetValue() const { return mValue; }

  // Behaviour
  void SetButtonStyle(ButtonStyle style) { mStyle = style; }
  ButtonStyle GetButtonStyle() const { return mStyle; }
  /// A spring-loaded button is pressed only while held: it never stays on.
  void SetSpringLoaded(bool springLoaded) { mSpringLoaded = springLoaded; }
  bool IsSpringLoaded() const { return mSpringLoaded; }
  /// Notifies at the press rather than at the release.
  void SetNotifiesOnMouseDown(bool notifies) { mNotifiesOnMouseDown = notifies; }
  /// Whether a press takes the focus, as at first, if the button wants it.
  void SetChangeFocusOnClick(bool changes) { mChangeFocusOnClick = changes; }
  /// Presses the button as a key would. Nothing happens while it is disabled.
  void PerformClick();

  // Appearance; all invalidate on a change.
  /// The button that Enter means in its dialog.
  void SetDefaultAppearance(bool isDefault);
  bool GetDefaultAppearance() const { return mIsDefault; }
  /// One of the buttons that end a dialog: framed in the V7 look, unless it is the default one, which is
  /// drawn as the primary one, or has a variant of its own.
  void SetCommitAppearance(bool commits);
  bool GetCommitAppearance() const { return mCommits; }
  /// A frame even while idle, as at first.
  void SetDisplayBorderAlways(bool displays);
  bool ShouldDisplayBorderAlways() const { return mDisplayBorderAlways; }
  void SetDisplayBorderNever(bool never);
  /// A ground even while idle, as at first.
  void SetDisplayContainerAlways(bool displays);
  bool ShouldDisplayContainerAlways() const { return mDisplayContainerAlways; }
  /// Widths of the frame: with the default appearance, and without. 2 and 1 at first.
  void SetStrokeSizes(float withDefault, float withoutDefault);
  void SetStrokeSize1(float withDefault) { SetStrokeSizes(withDefault, mStrokeSizes.second); }
  void SetStrokeSize2(float withoutDefault) { SetStrokeSizes(mStrokeSizes.first, withoutDefault); }
  std::pair<float, float> GetStrokeSizes() const { return mStrokeSizes; }
  void SetContentOffset(PointT<float> offset);
  void SetContentOffsetX(float x) { SetContentOffset({x, mContentOffset.y}); }
  void SetContentOffsetY(float y) { SetContentOffset({mContentOffset.x, y}); }
  PointT<float> GetContentOffset() const { return mContentOffset; }
  /// How far the content moves while the button is down; (0, 0) at first.
  void SetDownOffset(PointT<float> offset);
  void SetDownOffsetX(float x) { SetDownOffset({x, mDownOffset.y}); }
  void SetDownOffsetY(float y) { SetDownOffset({mDownOffset.x, y}); }
  PointT<float> GetDownOffset() const { return mDownOffset; }
  /// Empty: that of the skin set.
  void SetCornerRadius(std::optional<float> radius);
  void SetSuppressFocusDrawing(bool suppress);
  void SetComponents(ButtonComponents const& components);
  void SetComponentSize(ComponentSize size);
  void SetVariant(ButtonVariant variant);
  void SetQuiet(bool quiet);
  /// On, it shows in the interactive colour.
  void SetEmphasized(bool emphasized);
  void SetShowHoldIcon(bool shows);
  /// A matter of the recommended width of buttons with a label.
  void SetDensity(ComponentDensity density);
  ButtonComponents const& GetComponents() const { return mComponents; }

  /// What the button's own drawing is made with; a face is not among it.
  virtual DrawButtonParameters GetDrawParameters() const;
  /// Draws a button: ground, frame, focus ring, face.
  static void Draw(scriber::Scriber* scriber, DrawButtonParameters const& parameters);

  void UI_Draw(scriber::Scriber* scriber) const override;
  PaddingT<float> UI_GetDrawOverhang() const override;
  ExtentT<float> UI_GetRecommendedSize(scriber::Scriber* scriber) const override;
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override;
  void UI_FocusChanged(ui::FocusChangeReason reason) override;
  bool UI_InvalidateOnMouseOverChange(bool over) override;
  ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  ui::AccessibleState UI_GetAccessibleState() const override;
  bool UI_DoAccessibleAction() override;

 protected:
  /// What is inside the frame. `rect` is the button's rectangle with the offsets of the moment.
  virtual void DrawContent(scriber::Scriber* scriber, RectT<float> const& rect,
                           DrawButtonParameters const& parameters) const;
  /// The user has pressed it: by default turns a toggle and notifies.
  virtual void Clicked();
  bool ShowsFocusRing() const;
  void TakeFocusForPress();
  /// The shape of every setter that can be seen.
  template <typename T>
  bool StoreVisual(T& field, T const& value) {
    if (field == value) {
      return false;
    }
    field = value;
    UI_Invalidate();
    return true;
  }
  /// The same for the text that names the button.
  void StoreLabel(moxcore::Utf16String& field, moxcore::Utf16String const& text);

 private:
  void BeginPress(ui::MouseEvent const& event);
  void ContinuePress(ui::MouseEvent const& event);
  void CancelPress();

  ButtonComponents mComponents;
  std::pair<float, float> mStrokeSizes{2.0f, 1.0f};
  PointT<float> mContentOffset;
  PointT<float> mDownOffset;
  std::optional<float> mCornerRadius;
  ButtonStyle mStyle = ButtonStyle::kPush;
  FocusVisibility mFocusVisibility;
  bool mValue = false;
  bool mSpringLoaded = false;
  bool mNotifiesOnMouseDown = false;
  bool mChangeFocusOnClick = true;
  bool mIsDefault = false;
  bool mCommits = false;
  bool mDisplayBorderAlways = true;
  bool mDisplayBorderNever = false;
  bool mDisplayContainerAlways = true;
  bool mSuppressFocusDrawing = false;
  bool mSpaceIsDown = false;
};

}  // namespace moxui::controls
