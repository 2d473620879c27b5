#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/RoundedRect.h>

#include <algorithm>

namespace moxui::utils {

namespace {

void AppendRoundedRect(scriber::PathInterface& path, RectT<float> const& rect, float radius,
                       RoundedCorners const& corners) {
  if (rect.IsEmpty()) {
    return;
  }
  // Written so that a radius that is no number counts as 0.
  float const r = radius > 0.0f ? std::min(radius, 0.5f * std::min(rect.width, rect.height)) : 0.0f;
  if (r == 0.0f) {
    path.AddRect(rect);
    return;
  }
  float const right = rect.Right();
  float const bottom = rect.Bottom();
  // Clockwise from the top edge; an arc joins the outline by a straight line.
  path.MoveTo({rect.left + (corners.top ? r : 0.0f), rect.top});
  if (corners.right) {
    path.AddArc({right - r, rect.top + r}, r, 270.0f, 90.0f);
  } else {
    path.LineTo({right, rect.top});
  }
  if (corners.bottom) {
    path.AddArc({right - r, bottom - r}, r, 0.0f, 90.0f);
  } else {
    path.LineTo({right, bottom});
  }
  if (corners.left) {
    path.AddArc({rect.left + r, bottom - r}, r, 90.0f, 90.0f);
  } else {
    path.LineTo({rect.left, bottom});
  }
  if (corners.top) {
    path.AddArc({rect.left + r, rect.top + r}, r, 180.0f, 90.0f);
  } else {
    path.LineTo(rect.TopLeft());
  }
  path.Close();
}

}  // namespace

void FormRoundedRect(scriber::PathP& path, RectT<float> const& rect, float radius) {
  AppendRoundedRect(*path, rect, radius, kAllCorners);
}

void FormRoundedRect(scriber::PathP& path, RectT<float> const& rect, float radius,
                     RoundedCorners const& corners) {
  AppendRoundedRect(*path, rect, radius, corners);
}

void GetRoundedRectPath(scriber::PathInterface& path, RectT<float> const& rect, float radius) {
  AppendRoundedRect(path, rect, radius, kAllCorners);
}

void GetRoundedRectPath(scriber::PathP const& path, RectT<float> const& rect, float radius) {
  AppendRoundedRect(*path, rect, radius, kAllCorners);
}

}  // namespace moxui::utils
