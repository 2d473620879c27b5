#pragma once

#include <moxui/controls/UI_ControlView.h>

#include <string_view>

namespace playground {

class EventLog;

// Shows a log, its newest lines at the bottom; the wheel and the keys scroll back.
class EventLogView : public moxui::controls::UI_ControlView {
 public:
  // The log outlives the view. The texts, literals, are the heading and what stands below it while there is
  // nothing to be shown.
  explicit EventLogView(
      EventLog& log, std::string_view title = "$$$/playground/log/title=Messages",
      std::string_view emptyText = "$$$/playground/log/empty=What the controls tell is listed here.");
  ~EventLogView() override;

  // How many of the newest lines lie below the view.
  int GetLinesBack() const { return mLinesBack; }
  void ScrollBack(int lines);

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  bool UI_DoPointerEvent(moxui::ui::UI_Node* node, moxui::ui::PointerEvent const& event) override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  int VisibleLines() const;

  EventLog& mLog;
  moxcore::Utf16String mTitle;
  moxcore::Utf16String mEmptyText;
  int mLinesBack = 0;
  float mWheelLines = 0.0f;  // moved by the wheel and not scrolled yet, less than one
};

}  // namespace playground
