#include "controls/DrawnSamples.h"

#include "program/Localized.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_OwnerDrawButton.h>
#include <moxui/controls/UI_PictureButton.h>
#include <moxui/controls/UI_PictureSupplyMessage.h>
#include <moxui/controls/UI_StaticImage.h>
#include <moxui/resources/ImageProvider.h>
#include <moxui/scriber/Drawing.h>
#include <moxui/skins/Design.h>
#include <moxui/ui/UI_NodeManager.h>

#include <memory>

namespace playground {
namespace {

using moxcore::messaging::ConstMessage;
using moxcore::messaging::ConstMessageFunction;
using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_ControlView;
using moxui::controls::UI_OwnerDrawButton;
using moxui::controls::UI_PictureButton;
using moxui::controls::UI_PictureSupplyMessage;
using moxui::controls::UI_StaticImage;
using moxui::skins::design::ButtonProperty;

std::string CapsuleText() {
  return Text("$$$/playground/sample/keyword=Interview");
}

void DrawCapsule(UI_OwnerDrawButton const& button, moxui::scriber::Scriber* scriber) {
  RectT<float> const own = button.UI_GetLocalRectF(false);
  auto parameters = button.GetDrawParameters();
  parameters.SetCornerRadius(own.height / 2.0f);
  UI_OwnerDrawButton::Draw(scriber, parameters);
  moxui::ColorRGBA const ink = GetButtonColor(parameters, ButtonProperty::kLabel);
  DrawLabel(scriber, To16(CapsuleText()), own, moxui::scriber::TextAlignment::kCenter,
            moxui::ui::FontIndex::kText, ink);
  if (button.IsValueUnknown()) {
    // As other buttons tell it: a dash below the word.
    moxui::utils::DrawRect(scriber, {own.Center().x - 4.0f, own.Bottom() - 4.0f, 8.0f, 2.0f}, ink);
  }
}

void SupplyStar(ConstMessage* message) {
  auto* const manager = moxui::ui::UI_NodeManager::Get(false);
  auto* const icons = manager != nullptr ? manager->GetImageProvider() : nullptr;
  auto* const question = dynamic_cast<UI_PictureSupplyMessage*>(message);
  if (icons != nullptr && question != nullptr) {
    question->SetImage(
        icons->GetThemeImage("Star_12", question->GetDrawSupplier(), question->GetStateFlags()));
  }
}

}  // namespace

IntrusivePtr<UI_ControlView> StaticImageSample() {
  auto image = MakeIntrusive<Named<UI_StaticImage>>(Text("$$$/playground/sample/pinned=Pinned"));
  image->SetImageSupplyFunction(std::make_shared<ConstMessageFunction>(SupplyStar));
  return image;
}

IntrusivePtr<UI_ControlView> NamedPictureSample() {
  auto button = MakeIntrusive<Named<UI_PictureButton>>(Text("$$$/playground/sample/revert=Revert"));
  button->SetImageName("Revert_16");
  return button;
}

IntrusivePtr<UI_ControlView> OwnerDrawnSample() {
  auto button = MakeIntrusive<Named<UI_OwnerDrawButton>>(CapsuleText());
  button->SetOwnerDrawFunction(
      [](UI_OwnerDrawButton* drawn, moxui::scriber::Scriber* scriber) { DrawCapsule(*drawn, scriber); });
  return button;
}

}  // namespace playground
