#pragma once

#include "properties/Property.h"

#include <moxui/controls/UI_ScrollView.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace playground {

class PropertyRow;

// Groups of properties, each with its heading, in a view that scrolls.
class PropertyPanel : public moxui::ui::UI_SubView {
 public:
  // Called after the user changed a property, with its value in words.
  using ChangeFunction = std::function<void(Property const& property, std::string const& value)>;

  PropertyPanel();
  ~PropertyPanel() override;

  void SetChangeFunction(ChangeFunction change) { mChange = std::move(change); }
  void SetGroups(std::vector<PropertyGroup> groups);
  // Shows the values and says what can be worked as things stand now.
  void Refresh();
  // The row of a property, or null.
  PropertyRow* FindRow(std::string_view id) const;
  std::vector<moxcore::utility::IntrusivePtr<PropertyRow>> const& Rows() const { return mRows; }

  float GetScrollOffset() const;
  void SetScrollOffset(float offset);

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void LayOut();

  ChangeFunction mChange;
  moxcore::utility::IntrusivePtr<moxui::ui::UI_SubView> mContent;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_ScrollView> mScroll;
  std::vector<moxcore::utility::IntrusivePtr<PropertyRow>> mRows;
  // Headings and rows in their order down the panel.
  std::vector<moxcore::utility::IntrusivePtr<moxui::ui::UI_Node>> mLines;
};

}  // namespace playground
