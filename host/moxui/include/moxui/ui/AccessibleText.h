#pragma once

#include <moxcore/string/String.h>
#include <moxui/geometry/PointT.h>
#include <moxui/geometry/RectT.h>
#include <moxui/platform/TextEditor.h>

#include <cstddef>

namespace moxui::ui {

/// The text of a node that edits one, for assistive software. Positions are UTF-16 units and may be past the
/// end; rectangles and points are in the node's own coordinates.
class AccessibleText {
 public:
  virtual ~AccessibleText();
  virtual moxcore::Utf16String GetText() const = 0;
  virtual platform::TextSelection GetSelection() const = 0;
  virtual void SetSelection(platform::TextSelection selection) = 0;
  virtual RectT<float> GetCharacterRect(std::size_t position) const = 0;
  /// The place between two characters that is nearest to a point.
  virtual std::size_t GetPositionAt(PointT<float> point) const = 0;
  /// Puts `text` in the place of a stretch as if the user had typed it. False where nothing can be typed.
  virtual bool ReplaceText(platform::TextSelection stretch, moxcore::Utf16String const& text) = 0;
};

}  // namespace moxui::ui
