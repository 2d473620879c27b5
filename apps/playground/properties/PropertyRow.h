#pragma once

#include "properties/Property.h"

#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <string>

namespace playground {

// One property with the control that works it, and its label beside that.
class PropertyRow : public moxui::ui::UI_SubView {
 public:
  using ChangeFunction = std::function<void(Property const& property, std::string const& value)>;

  // The row that suits the property. `change` is called after the user changed it.
  static moxcore::utility::IntrusivePtr<PropertyRow> Make(Property property, ChangeFunction change);
  ~PropertyRow() override;

  Property const& GetProperty() const { return mProperty; }
  // Shows the value, enables or disables.
  void Refresh();

 protected:
  PropertyRow(Property property, ChangeFunction change);
  virtual void ShowValue() = 0;
  void Changed(std::string const& value);

 private:
  Property mProperty;
  ChangeFunction mChange;
};

}  // namespace playground
