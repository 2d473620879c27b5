#include "MeasuredTextLayout.h"

#include <moxui/scriber/FontInterface.h>

namespace moxui::scriber {

TextLayoutP FontInterface::NewTextLayout(std::u16string_view text, float width,
                                         TextAlignment alignment) const {
  return moxcore::utility::MakeIntrusive<MeasuredTextLayout>(FontP(const_cast<FontInterface*>(this)), text,
                                                             width, alignment);
}

}  // namespace moxui::scriber
