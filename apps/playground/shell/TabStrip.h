#pragma once

#include "shell/ItemControl.h"

#include <cstddef>
#include <vector>

namespace playground {

// A row of tabs of which one is chosen. A click or the arrow keys choose; the listeners hear of it.
class TabStrip : public ItemControl {
 public:
  TabStrip();
  ~TabStrip() override;

  void SetTabs(std::vector<moxcore::Utf16String> tabs);
  std::size_t TabCount() const { return mTabs.size(); }
  // Silent.
  void SetValue(std::size_t tab);
  std::size_t GetValue() const { return mValue; }

  std::size_t ItemCount() const override { return mTabs.size(); }
  moxui::RectT<float> ItemRect(std::size_t tab) const override;
  moxcore::Utf16String ItemName(std::size_t tab) const override { return mTabs[tab]; }

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  moxui::PaddingT<float> UI_GetDrawOverhang() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  void ItemPressed(std::size_t tab) override { Choose(tab); }
  moxui::ui::AccessibleRole ItemRole() const override { return moxui::ui::AccessibleRole::kTab; }
  void Choose(std::size_t tab);

  std::vector<moxcore::Utf16String> mTabs;
  std::size_t mValue = 0;
};

}  // namespace playground
