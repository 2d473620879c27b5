#include "audio/EditBar.h"

#include "audio/AudioSession.h"
#include "audio/GlyphButton.h"
#include "program/Localized.h"
#include "shell/Listening.h"
#include "shell/Painting.h"

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;

constexpr float kButtonWidth = 28.0f;
constexpr float kGap = 4.0f;
constexpr int kButtonCount = 3;

// An arrow that turns back.
GlyphStrokes UndoStrokes() {
  return {{{6.0f, 3.0f}, {3.0f, 6.0f}, {6.0f, 9.0f}},
          {{3.0f, 6.0f},
           {10.0f, 6.0f},
           {11.5f, 6.4f},
           {12.6f, 7.5f},
           {13.0f, 9.0f},
           {12.6f, 10.5f},
           {11.5f, 11.6f},
           {10.0f, 12.0f},
           {6.0f, 12.0f}}};
}

GlyphStrokes Mirrored(GlyphStrokes strokes) {
  for (auto& stroke : strokes) {
    for (auto& point : stroke) {
      point.x = 16.0f - point.x;
    }
  }
  return strokes;
}

// A span between two ends.
GlyphStrokes ZoomStrokes() {
  return {{{2.0f, 3.0f}, {2.0f, 13.0f}},
          {{14.0f, 3.0f}, {14.0f, 13.0f}},
          {{4.5f, 8.0f}, {11.5f, 8.0f}},
          {{7.0f, 5.5f}, {4.5f, 8.0f}, {7.0f, 10.5f}},
          {{9.0f, 5.5f}, {11.5f, 8.0f}, {9.0f, 10.5f}}};
}

}  // namespace

EditBar::EditBar(AudioSession& session) : mSession(session) {
  mUndo = MakeIntrusive<GlyphButton>(
      Text("$$$/playground/edit/undo=Undo"),
      Text("$$$/playground/edit/undoTip=Go back to the view and selection before (Ctrl+Z)"), UndoStrokes(),
      true);
  mRedo =
      MakeIntrusive<GlyphButton>(Text("$$$/playground/edit/redo=Redo"),
                                 Text("$$$/playground/edit/redoTip=Go forth again (Ctrl+Shift+Z or Ctrl+Y)"),
                                 Mirrored(UndoStrokes()), true);
  mZoom = MakeIntrusive<GlyphButton>(
      Text("$$$/playground/edit/zoom=Zoom to the selection"),
      Text("$$$/playground/edit/zoomTip=Zoom to the selection, or back to the view before (Z)"),
      ZoomStrokes());
  for (auto const& button : {mUndo, mRedo, mZoom}) {
    ChildPushBack(button);
  }
  WhenChanged(*mUndo, this, [](EditBar& bar) { bar.mSession.Undo(); });
  WhenChanged(*mRedo, this, [](EditBar& bar) { bar.mSession.Redo(); });
  WhenChanged(*mZoom, this, [](EditBar& bar) { bar.mSession.ToggleSelectionZoom(); });
  Refresh();
}

EditBar::~EditBar() = default;

GlyphButton& EditBar::UndoButton() const {
  return *mUndo;
}
GlyphButton& EditBar::RedoButton() const {
  return *mRedo;
}
GlyphButton& EditBar::ZoomButton() const {
  return *mZoom;
}

float EditBar::Width() {
  return static_cast<float>(kButtonCount) * (kButtonWidth + kGap) - kGap;
}

void EditBar::Refresh() {
  mUndo->UI_SetEnabled(mSession.CanUndo());
  mRedo->UI_SetEnabled(mSession.CanRedo());
  mZoom->UI_SetEnabled(mSession.CanToggleSelectionZoom());
}

void EditBar::UI_SizeChanged(moxui::RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  float left = 0.0f;
  for (auto const& button : {mUndo, mRedo, mZoom}) {
    button->UI_SetLocalRectF(Placed({left, 0.0f, kButtonWidth, ControlHeight()}, rect.width));
    left += kButtonWidth + kGap;
  }
}

}  // namespace playground
