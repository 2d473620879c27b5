#pragma once

#include "shell/Page.h"

#include <moxui/controls/UI_StaticText.h>

namespace playground {

class CurveSession;
class CurveView;
class PropertyPanel;

// A tone curve, worked by hand, by keys, by a panel and by the dialog for a point. Its states are curves to
// begin from.
class CurvePage : public Page {
 public:
  explicit CurvePage(PageContext const& context);
  ~CurvePage() override;

  void ShowState(std::size_t state) override;
  void ResumeState(std::size_t) override {}
  float GetScrollOffset() const override;
  void SetScrollOffset(float offset) override;
  bool HandleShortcut(moxui::ui::KeyboardEvent const& event) override;

  CurveView& View() const;
  PropertyPanel& Panel() const;

  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  void SessionChanged(bool isSettled);

  CurveSession& mSession;
  EventLog& mLog;
  moxcore::utility::IntrusivePtr<CurveView> mView;
  moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> mHint;
  moxcore::utility::IntrusivePtr<PropertyPanel> mPanel;
};

// Its entry in the list of pages.
PageDescriptor CurvePageDescriptor();

}  // namespace playground
