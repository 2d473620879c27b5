#pragma once

#include <moxui/ui/UI_Node.h>

#include <string>

namespace playground {

// A thin bar from 0 to 1, with a name for assistive software.
class ProgressBar : public moxui::ui::UI_Node {
 public:
  explicit ProgressBar(std::string const& name) : mName(name) {}

  void SetFraction(double fraction);

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override { return mName; }
  moxcore::Utf8String UI_GetAccessibleValue() const override;
  std::optional<moxui::ui::AccessibleRange> UI_GetAccessibleRange() const override;
  moxui::ui::AccessibleState UI_GetAccessibleState() const override { return {.isReadOnly = true}; }

 private:
  moxcore::Utf8String mName;
  double mFraction = 0.0;
};

}  // namespace playground
