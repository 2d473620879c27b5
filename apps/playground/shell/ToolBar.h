#pragma once

#include "program/Appearance.h"

#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/ui/UI_SubView.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace playground {

// Theme, look, scale, language and direction at the top of the window, and the button that opens files.
class ToolBar : public moxui::ui::UI_SubView {
 public:
  using ChangeFunction = std::function<void(Appearance const&)>;

  ToolBar(Appearance const& appearance, ChangeFunction change, std::function<void()> open);
  ~ToolBar() override;

  moxui::controls::UI_Popup& Theme() const { return *mTheme; }
  moxui::controls::UI_Popup& Look() const { return *mLook; }
  moxui::controls::UI_Popup& Scale() const { return *mScale; }
  moxui::controls::UI_Popup& Language() const { return *mLanguage; }
  moxui::controls::UI_Checkbox& Direction() const { return *mDirection; }
  moxui::controls::UI_TextButton& Open() const { return *mOpen; }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> AddPopup(std::string const& label,
                                                                     std::vector<std::string> const& items,
                                                                     std::int64_t value);
  static float PopupWidth(moxui::controls::UI_Popup const& popup);
  void Changed();

  // A label and the popup behind it.
  struct Labelled {
    moxcore::Utf16String label;
    moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> popup;
    moxui::RectT<float> labelRect;
  };

  Appearance mAppearance;
  std::vector<LanguageChoice> mLanguages = OfferedLanguages();  // as the popup lists them
  ChangeFunction mChange;
  std::function<void()> mOpenFiles;
  std::vector<Labelled> mPopups;
  bool mShowsLabels = true;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> mTheme;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> mLook;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> mScale;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup> mLanguage;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_Checkbox> mDirection;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_TextButton> mOpen;
};

}  // namespace playground
