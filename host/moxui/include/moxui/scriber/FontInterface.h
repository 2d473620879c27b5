#pragma once

#include <moxcore/utility/RefCountedObjectWithoutVirtualBase.h>
#include <moxui/scriber/ScriberTypes.h>

#include <string_view>

namespace moxui::scriber {

/// A font at a size. All measures are logical pixels.
class FontInterface : public moxcore::utility::RefCountedObjectWithoutVirtualBase {
 public:
  /// Height above and (positive) depth below the baseline.
  virtual float GetAscent() const = 0;
  virtual float GetDescent() const = 0;
  /// Advance of the whole text in one line, fraction kept.
  virtual float GetWidth(std::u16string_view text) const = 0;
  virtual float GetSize() const = 0;
  /// A text broken at its line feeds and, with a width above 0, wrapped into it: at words, within words that
  /// are wider. The alignment is that within the width. The base measures, and knows one direction only.
  virtual TextLayoutP NewTextLayout(std::u16string_view text, float width, TextAlignment alignment) const;
};

}  // namespace moxui::scriber
