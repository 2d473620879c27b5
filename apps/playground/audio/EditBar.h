#pragma once

#include <moxui/ui/UI_SubView.h>

namespace playground {

class AudioSession;
class GlyphButton;

// Buttons for what is done with the view and the selection: undo, redo, zoom to the selection and back.
class EditBar : public moxui::ui::UI_SubView {
 public:
  explicit EditBar(AudioSession& session);
  ~EditBar() override;

  // The width that all of it takes.
  static float Width();
  // The session has changed: enables what can be done now.
  void Refresh();

  GlyphButton& UndoButton() const;
  GlyphButton& RedoButton() const;
  GlyphButton& ZoomButton() const;

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  AudioSession& mSession;
  moxcore::utility::IntrusivePtr<GlyphButton> mUndo;
  moxcore::utility::IntrusivePtr<GlyphButton> mRedo;
  moxcore::utility::IntrusivePtr<GlyphButton> mZoom;
};

}  // namespace playground
