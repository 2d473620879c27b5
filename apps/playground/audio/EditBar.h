#pragma once

#include <moxui/ui/UI_SubView.h>

#include <functional>

namespace playground {

class AudioSession;
enum class ExportKind;
class GlyphButton;

// Buttons for what is done with the view and the selection: undo, redo, zoom to the selection and back, and a
// menu of exports.
class EditBar : public moxui::ui::UI_SubView {
 public:
  // Asks the user for a file of a kind, and exports.
  using ExportFunction = std::function<void(ExportKind)>;

  EditBar(AudioSession& session, ExportFunction exports);
  ~EditBar() override;

  // The width that all of it takes.
  static float Width();
  // The session has changed: enables what can be done now.
  void Refresh();

  GlyphButton& UndoButton() const;
  GlyphButton& RedoButton() const;
  GlyphButton& ZoomButton() const;
  GlyphButton& ExportButton() const;

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void OpenExportMenu();

  AudioSession& mSession;
  ExportFunction mExports;
  moxcore::utility::IntrusivePtr<GlyphButton> mUndo;
  moxcore::utility::IntrusivePtr<GlyphButton> mRedo;
  moxcore::utility::IntrusivePtr<GlyphButton> mZoom;
  moxcore::utility::IntrusivePtr<GlyphButton> mExport;
};

}  // namespace playground
