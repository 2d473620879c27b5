#include <moxui/resources/IconTone.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/skins/ColorizedIcon.h>
#include <moxui/skins/ControlState.h>

#include <span>

namespace moxui::skins::utilities {

scriber::ImageP GetColorizedSVGIconImage([[maybe_unused]] ui::ThemeProvider const* provider,
                                         scriber::Scriber* scriber, std::string_view name,
                                         ColorRGBA const& rest, ColorRGBA const& active,
                                         ColorRGBA const& disabled, Flags<unsigned int> state,
                                         moxui::utility::ResourceManager const* resources) {
  moxui::utility::ResourceBytes document;
  if (scriber == nullptr || scriber->GetSupplier() == nullptr || resources == nullptr || name.empty() ||
      !moxui::utility::FindIconDocument(*resources, name, document)) {
    return nullptr;
  }
  Interaction const interaction = GetInteraction(state);
  ColorRGBA const& tone = interaction == Interaction::kDisabled ? disabled
                          : interaction == Interaction::kIdle   ? rest
                                                                : active;
  auto const toned = moxui::utility::ApplyIconTone(document, tone);
  return scriber->GetSupplier()->NewImageFromFileBytes(std::as_bytes(std::span(toned)),
                                                       moxui::utility::kIconScale);
}

}  // namespace moxui::skins::utilities
