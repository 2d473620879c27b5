#include "curve/PointDialog.h"

#include "curve/CurveSession.h"
#include "program/Localized.h"

#include <moxcore/messaging/Message.h>
#include <moxmediaui/CurvePointEditDialog.h>
#include <moxworkspace/WorkspaceUtils.h>

#include <memory>

namespace playground {
namespace {

using moxui::controls::UI_HotTextNumber;

void SetUp(UI_HotTextNumber& number, double least, double most, double value) {
  number.SetMinValue(least);
  number.SetMaxValue(most);
  number.SetDecimalPlaces(1);
  number.SetFormatNoTrailingZeros(true);
  number.SetValue(value);
}

}  // namespace

void TypeSelectedPoint(CurveSession& session) {
  auto const dialog = moxcore::utility::MakeIntrusive<moxmediaui::CurvePointEditDialog>(
      Text16("$$$/playground/curve/dialog=Curve Point"), Text16("$$$/playground/curve/dialogInput=Input:"),
      Text16("$$$/playground/curve/dialogOutput=Output:"),
      moxworkspace::WorkspaceUtils::GetModalDialogParentNode());
  auto const input = dialog->GetHotTextNumber1();
  auto const output = dialog->GetHotTextNumber2();
  ToneCurve const& curve = session.Curve();
  CurvePoint const point = session.SelectedPoint();
  SetUp(*input, curve.LeastX(session.Selected()), curve.MostX(session.Selected()), point.x);
  SetUp(*output, 0.0, ToneCurve::kMost, point.y);
  CurveDrag step(session);
  auto const follow = [&] {
    session.MoveSelected({input->GetValue(), output->GetValue()}, CurveStep::kSingle);
  };
  using moxcore::messaging::Message;
  for (auto const& number : {input, output}) {
    auto const handler = std::make_shared<std::function<void(Message*)>>([&follow](Message*) { follow(); });
    number->NotifyWhenChanged(handler);
    number->NotifyWhenChangedInteractively(handler);
  }
  dialog->RunModal();
  if (dialog->GetResponse() == moxmediaui::CurvePointEditDialog::Response::kOk) {
    follow();
  } else {
    step.TakeBack();
  }
}

}  // namespace playground
