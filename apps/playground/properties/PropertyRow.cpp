#include "properties/PropertyRow.h"

#include "program/HexColor.h"
#include "program/Localized.h"
#include "properties/ColorField.h"
#include "shell/Listening.h"
#include "shell/Named.h"
#include "shell/Painting.h"

#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/skins/Look.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <variant>

namespace playground {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using moxui::RectT;
using moxui::controls::UI_Checkbox;
using moxui::controls::UI_Popup;
using moxui::controls::UI_Slider;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::controls::UI_TextEdit;

constexpr float kLabelShare = 0.36f;
constexpr float kReadOutWidth = 64.0f;

// Label in front, the rest for the control; both on the grid of four pixels.
RectT<float> LabelRect(RectT<float> const& row) {
  return Placed({0.0f, 0.0f, std::floor(row.width * kLabelShare / 4.0f) * 4.0f - kRowGap, row.height},
                row.width);
}

RectT<float> ControlRect(RectT<float> const& row) {
  float const left = std::floor(row.width * kLabelShare / 4.0f) * 4.0f;
  return Placed({left, 0.0f, row.width - left, row.height}, row.width);
}

IntrusivePtr<UI_StaticText> MakeLabel(std::string const& text) {
  auto label = MakeIntrusive<UI_StaticText>(To16(text));
  label->SetFontIndex(moxui::ui::FontIndex::kSmall);
  label->SetAlignment(Leading());
  label->SetTextTruncation(moxui::controls::TextTruncation::kEnd);
  label->UI_SetToolTip(moxcore::Utf8String(text), moxui::skins::GetToolTipDelay());
  return label;
}

class ToggleRow : public PropertyRow {
 public:
  ToggleRow(Property property, ChangeFunction change) : PropertyRow(std::move(property), std::move(change)) {
    mBox = MakeIntrusive<UI_Checkbox>();
    mBox->SetTextLabel(To16(GetProperty().label));
    mBox->SetFontIndex(moxui::ui::FontIndex::kSmall);
    mBox->SetWantsKeyboardFocus(true);
    ChildPushBack(mBox);
    WhenChanged(*mBox, this, [](ToggleRow& row) {
      bool const on = row.mBox->IsChecked();
      std::get<ToggleProperty>(row.GetProperty().kind).set(on);
      row.Changed(on ? Text("$$$/playground/value/on=on") : Text("$$$/playground/value/off=off"));
    });
  }

  void UI_SizeChanged(RectT<float> const& rect) override {
    // As wide as it needs to be, so that it stands at the leading edge in both directions.
    float const natural = std::ceil(mBox->UI_GetRecommendedSizeFromDefaultSupplier().width);
    mBox->UI_SetLocalRectF(Placed({0.0f, 0.0f, std::min(natural, rect.width), rect.height}, rect.width));
  }

 private:
  void ShowValue() override { mBox->SetChecked(std::get<ToggleProperty>(GetProperty().kind).get()); }

  IntrusivePtr<UI_Checkbox> mBox;
};

// A label, and what works the property behind it.
class LabelledRow : public PropertyRow {
 public:
  LabelledRow(Property property, ChangeFunction change)
      : PropertyRow(std::move(property), std::move(change)), mLabel(MakeLabel(GetProperty().label)) {
    ChildPushBack(mLabel);
  }

  void UI_SizeChanged(RectT<float> const& rect) override {
    mLabel->UI_SetLocalRectF(LabelRect(rect));
    PlaceControl(ControlRect(rect), rect.width);
  }

 private:
  // `control` is the place for it in a row of this width.
  virtual void PlaceControl(RectT<float> const& control, float rowWidth) = 0;

  IntrusivePtr<UI_StaticText> mLabel;
};

class ChoiceRow : public LabelledRow {
 public:
  ChoiceRow(Property property, ChangeFunction change) : LabelledRow(std::move(property), std::move(change)) {
    mPopup = MakeIntrusive<Named<UI_Popup>>(GetProperty().label);
    for (std::string const& item : Choice().items) {
      mPopup->AddItem(To16(item));
    }
    mPopup->SetItemCheckStyle(moxui::controls::ItemCheckStyle::kCurrent);
    mPopup->SetWantsKeyboardFocus(true);
    ChildPushBack(mPopup);
    WhenChanged(*mPopup, this, [](ChoiceRow& row) {
      auto const item = static_cast<std::size_t>(row.mPopup->GetValue());
      row.Choice().set(static_cast<int>(item));
      row.Changed(item < row.Choice().items.size() ? row.Choice().items[item] : std::string());
    });
  }

 private:
  void PlaceControl(RectT<float> const& control, float) override { mPopup->UI_SetLocalRectF(control); }
  ChoiceProperty const& Choice() const { return std::get<ChoiceProperty>(GetProperty().kind); }
  void ShowValue() override { mPopup->SetValue(Choice().get()); }

  IntrusivePtr<UI_Popup> mPopup;
};

class NumberRow : public LabelledRow {
 public:
  NumberRow(Property property, ChangeFunction change) : LabelledRow(std::move(property), std::move(change)) {
    mSlider = MakeIntrusive<Named<UI_Slider>>(GetProperty().label);
    mSlider->SetLimits(Number().low, Number().high);
    mSlider->SetStepSize(Number().step);
    mSlider->SetPageSize(Number().step * 10.0);
    mSlider->SetWantsKeyboardFocus(true);
    mReadOut = MakeIntrusive<UI_TextEdit>();
    mReadOut->SetAccessibleName(moxcore::Utf8String(GetProperty().label));
    mReadOut->SetAlignment(Trailing());
    ChildPushBack(mSlider);
    ChildPushBack(mReadOut);
    using moxcore::messaging::Message;
    mSlider->NotifyWhenChangedInteractively(std::make_shared<std::function<void(Message*)>>(
        [weak = moxcore::utility::RefCountedWeakPtr<NumberRow>(this)](Message*) {
          if (auto const row = weak.Lock()) {
            row->Take(row->mSlider->GetValue());
          }
        }));
    WhenChanged(*mSlider, this, [](NumberRow& row) {
      row.Take(row.mSlider->GetValue());
      row.Changed(row.Number().format(row.Number().get()));
    });
    WhenChanged(*mReadOut, this, [](NumberRow& row) {
      if (auto const value = row.Number().parse(To8(row.mReadOut->GetValue()))) {
        row.Take(std::clamp(*value, row.Number().low, row.Number().high));
        row.Changed(row.Number().format(row.Number().get()));
      }
      // Whatever was typed, the number in force is what stands there afterwards.
      row.mReadOut->SetValue(To16(row.Number().format(row.Number().get())), false);
    });
  }

 private:
  void PlaceControl(RectT<float> const& place, float rowWidth) override {
    RectT<float> const control = Placed(place, rowWidth);
    mSlider->UI_SetLocalRectF(
        Placed({control.left, 0.0f, control.width - kReadOutWidth - 8.0f, control.height}, rowWidth));
    mReadOut->UI_SetLocalRectF(
        Placed({control.Right() - kReadOutWidth, 0.0f, kReadOutWidth, control.height}, rowWidth));
  }

  NumberProperty const& Number() const { return std::get<NumberProperty>(GetProperty().kind); }

  void Take(double value) {
    if (value != Number().get()) {
      Number().set(value);
    }
  }

  void ShowValue() override {
    double const value = Number().get();
    if (!mSlider->IsChangingInteractively()) {
      mSlider->SetValue(value);
    }
    if (!mReadOut->UI_TextEditControlHasFocus()) {
      mReadOut->SetValue(To16(Number().format(value)), false);
    }
  }

  IntrusivePtr<UI_Slider> mSlider;
  IntrusivePtr<UI_TextEdit> mReadOut;
};

class ColorRow : public LabelledRow {
 public:
  ColorRow(Property property, ChangeFunction change) : LabelledRow(std::move(property), std::move(change)) {
    mField = MakeIntrusive<ColorField>(
        GetProperty().label,
        [weak = moxcore::utility::RefCountedWeakPtr<ColorRow>(this)](std::optional<moxui::ColorRGBA> color) {
          if (auto const row = weak.Lock()) {
            std::get<ColorProperty>(row->GetProperty().kind).set(color);
            row->Refresh();
            row->Changed(HexFromColor(row->mField->GetValue()));
          }
        });
    ChildPushBack(mField);
  }

 private:
  void PlaceControl(RectT<float> const& control, float) override { mField->UI_SetLocalRectF(control); }

  void ShowValue() override {
    auto const& color = std::get<ColorProperty>(GetProperty().kind);
    mField->SetValue(color.get(), color.followsTheme());
  }

  IntrusivePtr<ColorField> mField;
};

class ActionRow : public PropertyRow {
 public:
  ActionRow(Property property, ChangeFunction change) : PropertyRow(std::move(property), std::move(change)) {
    mButton = MakeIntrusive<UI_TextButton>(To16(GetProperty().label));
    mButton->SetWantsKeyboardFocus(true);
    ChildPushBack(mButton);
    WhenChanged(*mButton, this, [](ActionRow& row) {
      std::get<ActionProperty>(row.GetProperty().kind).run();
      row.Changed({});
    });
  }

  void UI_SizeChanged(RectT<float> const& rect) override { mButton->UI_SetLocalRectF(rect); }

 private:
  void ShowValue() override {}

  IntrusivePtr<UI_TextButton> mButton;
};

struct RowMaker {
  Property property;
  PropertyRow::ChangeFunction change;

  template <class Row>
  IntrusivePtr<PropertyRow> Make() {
    return MakeIntrusive<Row>(std::move(property), std::move(change));
  }
  IntrusivePtr<PropertyRow> operator()(ToggleProperty const&) { return Make<ToggleRow>(); }
  IntrusivePtr<PropertyRow> operator()(ChoiceProperty const&) { return Make<ChoiceRow>(); }
  IntrusivePtr<PropertyRow> operator()(NumberProperty const&) { return Make<NumberRow>(); }
  IntrusivePtr<PropertyRow> operator()(ColorProperty const&) { return Make<ColorRow>(); }
  IntrusivePtr<PropertyRow> operator()(ActionProperty const&) { return Make<ActionRow>(); }
};

}  // namespace

IntrusivePtr<PropertyRow> PropertyRow::Make(Property property, ChangeFunction change) {
  auto const kind = property.kind;
  auto row = std::visit(RowMaker{std::move(property), std::move(change)}, kind);
  row->UI_SetNodeID(moxcore::Utf8String(row->GetProperty().id));
  row->Refresh();
  return row;
}

PropertyRow::PropertyRow(Property property, ChangeFunction change)
    : mProperty(std::move(property)), mChange(std::move(change)) {}

PropertyRow::~PropertyRow() = default;

void PropertyRow::Refresh() {
  ShowValue();
  UI_SetEnabled(!mProperty.isEnabled || mProperty.isEnabled());
}

void PropertyRow::Changed(std::string const& value) {
  if (mChange) {
    mChange(mProperty, value);
  }
}

}  // namespace playground
