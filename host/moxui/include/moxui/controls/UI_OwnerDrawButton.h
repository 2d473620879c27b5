#pragma once

#include <moxui/controls/UI_Button.h>

#include <functional>

namespace moxui::controls {

/// A button that somebody else draws, in place of its own drawing.
class UI_OwnerDrawButton : public UI_Button {
 public:
  using OwnerDrawFunction = std::function<void(UI_OwnerDrawButton*, scriber::Scriber*)>;

  UI_OwnerDrawButton();
  ~UI_OwnerDrawButton() override;

  /// Is handed the button, so that it needn't hold it. An empty function takes that back.
  void SetOwnerDrawFunction(OwnerDrawFunction function);

  void UI_Draw(scriber::Scriber* scriber) const override;

 private:
  OwnerDrawFunction mOwnerDraw;
};

}  // namespace moxui::controls
