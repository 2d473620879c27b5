#pragma once

#include <moxui/ui/UI_Node.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace playground {

class AudioSession;
class ViewDrag;
class Viewport;
class WaveformPainter;

// The waveform of a session's sound, a column to each device pixel, with the selection and the place of the
// cursor. By hand: a drag selects, with shift it moves the nearer end; the wheel zooms at the pointer, with
// shift it scrolls, with command it zooms the level; the middle button, option or a held space bar drag the
// view. A space bar that is let go without a drag plays. The keyboard does the same. It changes the session
// and is told of every change by its page.
class WaveformView : public moxui::ui::UI_Node {
 public:
  // What is under the pointer: a column of the view.
  using HoverFunction = std::function<void(std::optional<int> column)>;

  explicit WaveformView(AudioSession& session);
  ~WaveformView() override;

  void SetHoverFunction(HoverFunction function) { mHover = std::move(function); }
  // Called when the space bar is let go.
  void SetPlayFunction(std::function<void()> function) { mPlay = std::move(function); }
  // The amplitude that the picture shows at a column.
  float AmplitudeAt(std::size_t channel, int column) const;
  // The root of the mean square of the samples of a column.
  float RmsAt(std::size_t channel, int column) const;
  // Waits for samples that are still being read.
  void Settle();
  WaveformPainter const& Painter() const { return *mPainter; }
  // Takes a drag back. False when none goes on.
  bool CancelDrag();

  // The session has changed so.
  void SelectionChanged();
  void ViewChanged();

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  void UI_ScaleChanged(float scale) override;
  bool UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoTimerNotify(int id) override;
  bool UI_WantsKeyboardFocus() const override { return true; }
  void UI_FocusChanged(moxui::ui::FocusChangeReason reason) override;
  moxui::PaddingT<float> UI_GetDrawOverhang() const override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  enum class Drag { kNone, kSelect, kScroll };

  int Columns(float scale) const;
  double ColumnAt(float x) const { return static_cast<double>(x) * GetViewScaleFactor(); }
  void BeginDrag(moxui::ui::MouseEvent const& event);
  void ContinueDrag(float x);
  void EndDrag();
  void ScrollWhileSelecting();
  bool HandleSpace(moxui::ui::KeyboardEvent const& event);
  void DrawCursor(moxui::scriber::Scriber* scriber, Viewport const& view, float scale) const;
  void DrawFocus(moxui::scriber::Scriber* scriber) const;
  moxui::RectT<float> CursorRect(std::int64_t sample) const;

  AudioSession& mSession;
  HoverFunction mHover;
  std::function<void()> mPlay;
  std::unique_ptr<WaveformPainter> mPainter;
  Drag mDrag = Drag::kNone;
  std::unique_ptr<ViewDrag> mStep;  // of the drag
  float mDragX = 0.0f;
  bool mSpaceIsDown = false;
  bool mSpaceWasUsed = false;  // for a drag, since it went down
  std::int64_t mCursor = 0;
};

}  // namespace playground
