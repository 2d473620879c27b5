#include "controls/SampleIcon.h"

#include "shell/Painting.h"

#include <moxui/controls/UI_PictureSupplyMessage.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/PathInterface.h>
#include <moxui/scriber/PenInterface.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/ControlState.h>

#include <functional>
#include <memory>

namespace playground {
namespace {

using moxcore::messaging::Message;
using moxui::controls::UI_PictureSupplyMessage;
using moxui::skins::Interaction;
using moxui::ui::ThemeColorID;

constexpr int kIconSize = 16;
// Drawn finer than most screens are, so that it stays sharp at each scale.
constexpr float kIconScale = 4.0f;

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

void Supply(Message* message) {
  auto* const request = dynamic_cast<UI_PictureSupplyMessage*>(message);
  if (request == nullptr || request->GetDrawSupplier() == nullptr) {
    return;
  }
  auto const& supplier = *request->GetDrawSupplier();
  auto const surface = supplier.NewOffscreenSurface(kIconSize, kIconSize, kIconScale);
  auto const path = supplier.NewPath();
  path->MoveTo({4.0f, 2.5f});
  path->LineTo({13.5f, 8.0f});
  path->LineTo({4.0f, 13.5f});
  path->Close();
  surface->FillPath(*path, *supplier.NewBrush(ThemeColor(ColorOfState(request->GetStateFlags()))),
                    moxui::scriber::FillRule::kWinding);
  request->SetImage(surface->GetImage());
}

}  // namespace

moxui::controls::ImageSupplyFunction SampleIcon() {
  return std::make_shared<std::function<void(Message*)>>(Supply);
}

}  // namespace playground
