#include "audio/EditBar.h"

#include "audio/AudioSession.h"
#include "audio/GlyphButton.h"
#include "program/Localized.h"
#include "shell/Listening.h"
#include "shell/Painting.h"

#include <moxui/ui/OS_Menu.h>

#include <utility>

namespace playground {
namespace {

using moxcore::utility::MakeIntrusive;

constexpr float kButtonWidth = 28.0f;
constexpr float kGap = 4.0f;
constexpr int kButtonCount = 4;

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

// An arrow out of a tray.
GlyphStrokes ExportStrokes() {
  return {{{8.0f, 10.0f}, {8.0f, 2.0f}},
          {{5.0f, 5.0f}, {8.0f, 2.0f}, {11.0f, 5.0f}},
          {{2.5f, 9.0f}, {2.5f, 13.5f}, {13.5f, 13.5f}, {13.5f, 9.0f}}};
}

}  // namespace

EditBar::EditBar(AudioSession& session, ExportFunction exports)
    : mSession(session), mExports(std::move(exports)) {
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
  mExport = MakeIntrusive<GlyphButton>(
      Text("$$$/playground/export/name=Export"),
      Text("$$$/playground/export/tip=Export the selection, the sound (Ctrl+E) or its peaks"),
      ExportStrokes());
  for (auto const& button : {mUndo, mRedo, mZoom, mExport}) {
    ChildPushBack(button);
  }
  WhenChanged(*mUndo, this, [](EditBar& bar) { bar.mSession.Undo(); });
  WhenChanged(*mRedo, this, [](EditBar& bar) { bar.mSession.Redo(); });
  WhenChanged(*mZoom, this, [](EditBar& bar) { bar.mSession.ToggleSelectionZoom(); });
  WhenChanged(*mExport, this, [](EditBar& bar) { bar.OpenExportMenu(); });
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

GlyphButton& EditBar::ExportButton() const {
  return *mExport;
}

void EditBar::OpenExportMenu() {
  constexpr ExportKind kKinds[] = {ExportKind::kWave, ExportKind::kPeaks16, ExportKind::kPeaks8};
  auto const menu = moxui::ui::CreateOSMenu();
  menu->AddItem(1, mSession.Selection().IsEmpty()
                       ? Text16("$$$/playground/export/wholeItem=Whole sound as WAV...")
                       : Text16("$$$/playground/export/selectionItem=Selection as WAV..."));
  menu->AddSeparator();
  menu->AddItem(2, Text16("$$$/playground/export/peaks16Item=Peaks of 16 bits as .dat..."));
  menu->AddItem(3, Text16("$$$/playground/export/peaks8Item=Peaks of 8 bits as .dat..."));
  for (int id = 1; id <= 3; ++id) {
    menu->EnableItem(id, CanExport(mSession, kKinds[id - 1]));
  }
  moxcore::utility::IntrusivePtr<EditBar> const alive(this);  // anything may happen while it is open
  auto const below = mExport->UI_GetLocalRectF(false);
  if (int const id = mExport->UI_DoContextMenu(menu.Get(), mExport.Get(), {0.0f, below.Bottom()});
      id >= 1 && id <= 3) {
    mExports(kKinds[id - 1]);
  }
}

float EditBar::Width() {
  return static_cast<float>(kButtonCount) * (kButtonWidth + kGap) - kGap;
}

void EditBar::Refresh() {
  mUndo->UI_SetEnabled(mSession.CanUndo());
  mRedo->UI_SetEnabled(mSession.CanRedo());
  mZoom->UI_SetEnabled(mSession.CanToggleSelectionZoom());
  mExport->UI_SetEnabled(mSession.HasSound());
}

void EditBar::UI_SizeChanged(moxui::RectT<float> const& rect) {
  UI_SubView::UI_SizeChanged(rect);
  float left = 0.0f;
  for (auto const& button : {mUndo, mRedo, mZoom, mExport}) {
    button->UI_SetLocalRectF(Placed({left, 0.0f, kButtonWidth, ControlHeight()}, rect.width));
    left += kButtonWidth + kGap;
  }
}

}  // namespace playground
