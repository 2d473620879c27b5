#include "scriber/Painting.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>

namespace bench::scriber {

void MeasureBlits(Figures& figures) {
  std::vector<std::uint32_t> picture(std::size_t{kWidth} * kHeight);
  for (std::size_t i = 0; i < picture.size(); ++i) {
    picture[i] = 0xff000000u | static_cast<std::uint32_t>(i * 2654435761u >> 8);
  }
  auto* const bytes = reinterpret_cast<unsigned char*>(picture.data());
  BufferImageP const opaque = GetRasterSupplier()->NewImage(kWidth, kHeight, kWidth * 4, PixelFormat::kBGRX32,
                                                            picture.data(), nullptr);
  QImage const qtOpaque(bytes, kWidth, kHeight, kWidth * 4, QImage::Format_RGB32);
  cairo_surface_t* const cairoOpaque =
      cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_RGB24, kWidth, kHeight, kWidth * 4);
  // A layer as the waveform painter makes them: transparent but for some curves.
  SurfaceP const layer = GetRasterSupplier()->NewOffscreenSurface(kWidth, kHeight, 1.0f);
  for (int i = 0; i < 8; ++i) {
    layer->StrokePath(*PathOf(GetRasterSupplier(), Curve(kWidth, static_cast<float>(i) * 135, 134, false, 2)),
                      *GetRasterSupplier()->NewPen(kVeil, 8.0f));
  }
  ImageP const layerImage = layer->GetImage();
  std::vector<std::uint32_t> straight(picture.size());
  layerImage->CopyPixels(reinterpret_cast<std::uint8_t*>(straight.data()), kWidth * 4);
  QImage qtLayer(reinterpret_cast<unsigned char*>(straight.data()), kWidth, kHeight, QImage::Format_ARGB32);
  qtLayer = qtLayer.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  cairo_surface_t* const cairoLayer =
      cairo_image_surface_create_for_data(qtLayer.bits(), CAIRO_FORMAT_ARGB32, kWidth, kHeight, kWidth * 4);
  for (bool const faint : {false, true}) {
    float const opacity = faint ? 0.9f : 1.0f;
    auto const byQt = [opacity](Qt& q, QImage const& image) {
      q.painter.setOpacity(static_cast<double>(opacity));
      q.painter.drawImage(0, 0, image);
      q.painter.setOpacity(1.0);
    };
    auto const byCairo = [opacity](Cairo& c, cairo_surface_t* image) {
      cairo_set_source_surface(c.cr, image, 0, 0);
      cairo_paint_with_alpha(c.cr, static_cast<double>(opacity));
    };
    Measure(figures, {.name = faint ? "blit_1080p_at_0.9" : "blit_1080p",
                      .ours = [&](Ours& o) { o.surface->DrawImage(*opaque, PointT<float>{}, opacity); },
                      .qt = [&](Qt& q) { byQt(q, qtOpaque); },
                      .cairo = [&](Cairo& c) { byCairo(c, cairoOpaque); }});
    Measure(figures, {.name = faint ? "blit_1080p_layer_at_0.9" : "blit_1080p_layer",
                      .ours = [&](Ours& o) { o.surface->DrawImage(*layerImage, PointT<float>{}, opacity); },
                      .qt = [&](Qt& q) { byQt(q, qtLayer); },
                      .cairo = [&](Cairo& c) { byCairo(c, cairoLayer); }});
  }
  cairo_surface_destroy(cairoOpaque);
  cairo_surface_destroy(cairoLayer);
}

}  // namespace bench::scriber
