#include "audio/TransportIcons.h"

#include "shell/Painting.h"

#include <moxui/controls/UI_PictureSupplyMessage.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/ControlState.h>

#include <initializer_list>
#include <memory>

namespace playground {
namespace {

using moxcore::messaging::ConstMessage;
using moxui::PointT;
using moxui::controls::UI_PictureSupplyMessage;
using moxui::scriber::PathInterface;
using moxui::skins::Interaction;
using moxui::ui::ThemeColorID;

constexpr int kIconSize = 16;
// Drawn finer than most screens are, so that it stays sharp at each scale.
constexpr float kIconScale = 4.0f;
constexpr float kLoopLine = 1.5f;

ThemeColorID ColorOfState(moxui::Flags<unsigned> state) {
  switch (moxui::skins::GetInteraction(state)) {
    case Interaction::kDisabled:
      return ThemeColorID::kButtonTextDisabled;
    case Interaction::kHover:
    case Interaction::kPressed:
      return ThemeColorID::kButtonTextActive;
    case Interaction::kIdle:
      break;
  }
  return ThemeColorID::kButtonText;
}

void AddPolygon(PathInterface& path, std::initializer_list<PointT<float>> points) {
  bool isFirst = true;
  for (PointT<float> const point : points) {
    if (isFirst) {
      path.MoveTo(point);
    } else {
      path.LineTo(point);
    }
    isFirst = false;
  }
  path.Close();
}

void AddSolid(TransportIcon icon, PathInterface& path) {
  switch (icon) {
    case TransportIcon::kToStart:
      path.AddRect({3.0f, 3.0f, 2.0f, 10.0f});
      AddPolygon(path, {{13.0f, 3.0f}, {13.0f, 13.0f}, {6.0f, 8.0f}});
      break;
    case TransportIcon::kPlay:
      AddPolygon(path, {{4.0f, 2.5f}, {13.5f, 8.0f}, {4.0f, 13.5f}});
      break;
    case TransportIcon::kPause:
      path.AddRect({4.0f, 3.0f, 3.0f, 10.0f});
      path.AddRect({9.0f, 3.0f, 3.0f, 10.0f});
      break;
    case TransportIcon::kStop:
      path.AddRect({3.5f, 3.5f, 9.0f, 9.0f});
      break;
    case TransportIcon::kToEnd:
      path.AddRect({11.0f, 3.0f, 2.0f, 10.0f});
      AddPolygon(path, {{3.0f, 3.0f}, {10.0f, 8.0f}, {3.0f, 13.0f}});
      break;
    case TransportIcon::kLoop:
      // The heads of its two arrows.
      AddPolygon(path, {{8.5f, 1.0f}, {12.0f, 4.0f}, {8.5f, 7.0f}});
      AddPolygon(path, {{7.5f, 9.0f}, {4.0f, 12.0f}, {7.5f, 15.0f}});
      break;
  }
}

void AddLoopLines(PathInterface& path) {
  constexpr float kRadius = 3.5f;
  // Above from left to right, below back, open where the heads are.
  path.MoveTo({2.0f, 9.0f});
  path.AddArc({2.0f + kRadius, 4.0f + kRadius}, kRadius, 180.0f, 90.0f);
  path.LineTo({9.0f, 4.0f});
  path.MoveTo({14.0f, 7.0f});
  path.AddArc({14.0f - kRadius, 12.0f - kRadius}, kRadius, 0.0f, 90.0f);
  path.LineTo({7.0f, 12.0f});
}

void Supply(TransportIcon icon, ConstMessage* message) {
  auto* const request = dynamic_cast<UI_PictureSupplyMessage*>(message);
  if (request == nullptr || request->GetDrawSupplier() == nullptr) {
    return;
  }
  auto const& supplier = *request->GetDrawSupplier();
  auto const surface = supplier.NewOffscreenSurface(kIconSize, kIconSize, kIconScale);
  if (!surface) {
    return;
  }
  moxui::ColorRGBA const color = ThemeColor(ColorOfState(request->GetStateFlags()));
  auto const solid = supplier.NewPath();
  AddSolid(icon, *solid);
  surface->FillPath(*solid, *supplier.NewBrush(color), moxui::scriber::FillRule::kWinding);
  if (icon == TransportIcon::kLoop) {
    auto const lines = supplier.NewPath();
    AddLoopLines(*lines);
    surface->StrokePath(*lines, *supplier.NewPen(color, kLoopLine));
  }
  request->SetImage(surface->GetImage());
}

}  // namespace

moxui::controls::ImageSupplyFunction IconOf(TransportIcon icon) {
  return std::make_shared<moxcore::messaging::ConstMessageFunction>(
      [icon](ConstMessage* message) { Supply(icon, message); });
}

}  // namespace playground
