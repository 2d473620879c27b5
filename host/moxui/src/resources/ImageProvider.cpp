#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_PictureSupplyMessage.h>
#include <moxui/resources/IconTone.h>
#include <moxui/resources/ImageProvider.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/SupplierInterface.h>

#include <algorithm>
#include <cmath>
#include <span>

namespace moxui::utility {

namespace {

constexpr std::size_t kMostImages = 512;  // names times tones; beyond it, all are made anew

std::uint32_t ToWord(ColorRGBA const& colour) {
  auto const byte = [](float component) {
    return static_cast<std::uint32_t>(std::lround(std::clamp(component, 0.0f, 1.0f) * 255.0f));
  };
  return byte(colour.red) << 24 | byte(colour.green) << 16 | byte(colour.blue) << 8 | byte(colour.alpha);
}

}  // namespace

ImageResourceHelper::~ImageResourceHelper() = default;

ImageProvider::ImageProvider(ResourceManager* resources, scriber::SupplierInterface const* supplier,
                             ImageResourceHelper* helper)
    : mResources(resources), mSupplier(supplier), mHelper(helper) {}
ImageProvider::~ImageProvider() = default;

scriber::ImageP ImageProvider::GetThemeImage(std::string_view name,
                                             scriber::SupplierInterface const* supplier,
                                             Flags<unsigned int> state, ui::ThemeProvider const* theme) {
  return GetImage(name, supplier, GetIconTone(theme, state));
}

scriber::ImageP ImageProvider::GetImage(std::string_view name, scriber::SupplierInterface const* supplier,
                                        ColorRGBA const& tone) {
  scriber::SupplierInterface const* const maker = supplier != nullptr ? supplier : mSupplier;
  if (maker == nullptr || name.empty()) {
    return nullptr;
  }
  Key key(maker, name, ToWord(tone));
  if (auto const found = mImages.find(key); found != mImages.end()) {
    return found->second;
  }
  ResourceBytes document;
  if (!GetImageResource(name, document)) {
    return nullptr;
  }
  ResourceBytes const toned = ApplyIconTone(document, tone);
  scriber::ImageP image = maker->NewImageFromFileBytes(std::as_bytes(std::span(toned)), kIconScale);
  if (image) {
    if (mImages.size() >= kMostImages) {
      mImages.clear();
    }
    mImages.emplace(std::move(key), image);
  }
  return image;
}

void ImageProvider::ProvideImage(controls::UI_PictureSupplyMessage* message) {
  if (message == nullptr) {
    return;
  }
  auto const* const button = dynamic_cast<controls::UI_PictureButton const*>(&message->GetControl());
  if (button == nullptr) {
    return;
  }
  if (scriber::ImageP image =
          GetThemeImage(button->GetImageName(), message->GetDrawSupplier(), message->GetStateFlags())) {
    message->SetImage(std::move(image));
  }
}

bool ImageProvider::GetImageResource(std::string_view name, ResourceBytes& document) {
  return (mHelper != nullptr && mHelper->GetImageResource(name, document)) ||
         (mResources != nullptr && FindIconDocument(*mResources, name, document));
}

}  // namespace moxui::utility
