#pragma once

#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_TextEdit.h>

#include <functional>
#include <optional>
#include <string_view>

namespace playground {

// A colour: a swatch, a popup of named colours with the theme's own as the first, and its number to be typed.
class ColorField : public moxui::ui::UI_SubView {
 public:
  // Called when the user chose a colour, or nothing for the theme's.
  using ChangeFunction = std::function<void(std::optional<moxui::ColorRGBA>)>;

  ColorField(std::string_view name, ChangeFunction change);
  ~ColorField() override;

  // Silent.
  void SetValue(moxui::ColorRGBA const& color, bool followsTheme);
  moxui::ColorRGBA GetValue() const { return mColor; }
  moxui::controls::UI_Popup& Popup() const { return *mPopup; }
  moxui::controls::UI_TextEdit& Number() const { return *mNumber; }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  moxui::RectT<float> SwatchRect() const;
  void Chosen();
  void Typed();

  moxui::ColorRGBA mColor;
  ChangeFunction mChange;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> mPopup;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextEdit> mNumber;
};

}  // namespace playground
