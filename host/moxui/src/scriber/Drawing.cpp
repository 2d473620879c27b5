#include <moxui/scriber/Drawing.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/TextTruncation.h>

#include <algorithm>
#include <cstddef>

namespace moxui::utils {

namespace {

// Appends a corner between an edge that comes in and one that goes out, going clockwise.
void AppendCorner(scriber::PathInterface& path, PointT<float> corner, PointT<float> centre, float radius,
                  float start, bool rounded) {
  if (rounded) {
    path.AddArc(centre, radius, start, 90.0f);
  } else {
    path.LineTo(corner);
  }
}

}  // namespace

void DrawRect(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour) {
  scriber->GetSurface()->FillRect(rect, colour);
}

void DrawOutline(scriber::Scriber* scriber, RectT<float> const& rect, ColorRGBA const& colour,
                 float thickness, FourEdgeTupleT<bool> const& edges, float cornerRadius,
                 RoundedCorners const& corners) {
  if (rect.IsEmpty() || !(thickness > 0.0f)) {
    return;
  }
  scriber::PathP path = scriber->GetSupplier()->NewPath();
  scriber::PenP const pen = scriber->GetSupplier()->NewPen(colour, thickness);
  float const r =
      cornerRadius > 0.0f ? std::min(cornerRadius, 0.5f * std::min(rect.width, rect.height)) : 0.0f;
  float const left = rect.left;
  float const top = rect.top;
  float const right = rect.Right();
  float const bottom = rect.Bottom();
  if (edges == kAllEdges) {
    FormRoundedRect(path, rect, r, corners);
    scriber->GetSurface()->StrokePath(*path, *pen);
    return;
  }
  // Edge by edge, clockwise from the top one. An edge whose neighbour is there too goes on round the corner.
  struct Edge {
    bool drawn;
    bool roundedBegin;  // the corner that it begins with
    PointT<float> begin;
    PointT<float> centre;  // of that corner
    float start;           // of that corner's arc, in degrees
  };
  Edge const all[4] = {{edges.top, corners.top, {left, top}, {left + r, top + r}, 180.0f},
                       {edges.right, corners.right, {right, top}, {right - r, top + r}, 270.0f},
                       {edges.bottom, corners.bottom, {right, bottom}, {right - r, bottom - r}, 0.0f},
                       {edges.left, corners.left, {left, bottom}, {left + r, bottom - r}, 90.0f}};
  for (std::size_t i = 0; i < 4; ++i) {
    Edge const& edge = all[i];
    Edge const& previous = all[(i + 3) % 4];
    if (!edge.drawn || previous.drawn) {
      continue;  // it is nothing, or goes on from the edge before it
    }
    path->MoveTo(edge.begin);
    for (std::size_t k = i; all[k % 4].drawn; ++k) {
      Edge const& next = all[(k + 1) % 4];
      AppendCorner(*path, next.begin, next.centre, r, next.start,
                   next.drawn && next.roundedBegin && r > 0.0f);
    }
  }
  scriber->GetSurface()->StrokePath(*path, *pen);
}

void DrawString(scriber::Scriber* scriber, std::u16string_view text, RectT<float> const& box,
                scriber::TextAlignment alignment, scriber::FontInterface const& font,
                ColorRGBA const& colour) {
  if (text.empty() || box.IsEmpty()) {
    return;
  }
  float const ascent = font.GetAscent();
  float const y = box.top + 0.5f * (box.height - ascent - font.GetDescent()) + ascent;
  float x = box.left;
  if (alignment == scriber::TextAlignment::kCenter) {
    x += 0.5f * box.width;
  } else if (alignment == scriber::TextAlignment::kRight) {
    x += box.width;
  }
  scriber->GetSurface()->DrawText(skins::TruncateText(text, box.width, font, skins::TextTruncation::kEnd),
                                  {x, y}, font, colour, alignment);
}

void DrawString(scriber::Scriber* scriber, std::u16string_view text, RectT<float> const& box,
                scriber::TextAlignment alignment, std::string_view fontName, float fontSize,
                ColorRGBA const& colour) {
  if (scriber::FontP const font = scriber->GetSupplier()->NewFont(fontName, "", fontSize)) {
    DrawString(scriber, text, box, alignment, *font, colour);
  }
}

}  // namespace moxui::utils
