#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/TextLayoutInterface.h>

namespace moxui::scriber {

TextLayoutP FontInterface::NewTextLayout(std::u16string_view /*text*/, float /*width*/,
                                         TextAlignment /*alignment*/) const {
  return nullptr;
}

}  // namespace moxui::scriber
