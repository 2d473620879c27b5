// Reads bytes as a picture, SVG or PNG, in an icon's tone, and draws it whole and in part. The first byte
// chooses the scale, so that a seed is one byte and a picture.
#include <moxui/platform/Application.h>
#include <moxui/resources/IconTone.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>

namespace {

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

void Draw(moxui::scriber::ImageInterface const& image, float scale) {
  auto const surface = moxui::scriber::GetRasterSupplier()->NewOffscreenSurface(20, 20, scale);
  Require(surface != nullptr);
  float const width = image.GetWidth();
  float const height = image.GetHeight();
  Require(width > 0.0f && height > 0.0f && image.GetPixelWidth() > 0 && image.GetPixelHeight() > 0);
  surface->DrawImage(image, moxui::RectT<float>{1.0f, 1.0f, 18.0f, 18.0f}, 1.0f);
  surface->DrawImage(image, moxui::RectT<float>{width * 0.25f, 0.0f, width * 0.5f, height * 0.3f},
                     moxui::RectT<float>{0.0f, 0.0f, 9.3f, 20.0f}, 0.5f);
}

}  // namespace

// fontconfig keeps patterns by their distance from each other, where the leak checker doesn't find them, and
// loads them when a drawing has its first text.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  static char sName[] = "icon_fuzz";
  static char* sArguments[] = {sName, nullptr};
  static int sCount = 1;
  // As long as the process, like what it keeps; text in a drawing needs it.
  static auto const sApplication = moxui::platform::Application::Create(sCount, sArguments);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) {
    return 0;
  }
  float const scale = 0.5f + static_cast<float>(data[0] % 16) / 4.0f;
  moxcore::utility::ResourceBytes const document(data + 1, data + size);
  auto const toned = moxui::utility::ApplyIconTone(document, {0.9f, 0.2f, 0.4f, 0.8f});
  auto const image = moxui::scriber::GetRasterSupplier()->NewImageFromFileBytes(
      std::as_bytes(std::span(toned)), moxui::utility::kIconScale);
  if (image) {
    Draw(*image, scale);
  }
  return 0;
}
