#include <moxui/controls/ControlText.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/FontNames.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/skins/ThemeClient.h>

namespace moxui::controls {

ControlAlignment GetAlignment(ControlText const& text) {
  return text.alignment.value_or(skins::GetLeadingAlignment());
}

scriber::FontP GetControlFont(ControlText const& text, ui::ThemeClient const& client,
                              scriber::SupplierInterface const* supplier) {
  if (supplier == nullptr) {
    return nullptr;
  }
  float const size = text.fontSize > 0.0f ? text.fontSize : client.GetThemeFontSize(text.fontIndex);
  moxcore::Utf8String const name = utils::ValidateFontName(client.GetThemeFontName(text.fontIndex));
  return supplier->NewFont(name, text.bold ? "Bold" : "", size);
}

}  // namespace moxui::controls
