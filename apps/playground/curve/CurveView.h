#pragma once

#include "curve/CurvePlot.h"
#include "curve/CurveSession.h"

#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace playground {

// A session's curve under the hand. A press on the curve adds a point, a double click beside it too; points
// are dragged, and dragged off to be removed. Each point is a node that takes the focus: arrow keys move it,
// Delete removes it, Insert adds another behind it. Enter or a double click asks for the point to be typed.
class CurveView : public moxui::ui::UI_SubView {
 public:
  // The session outlives the view, which is told of changes by its page. `type` opens the dialog for the
  // selected point.
  CurveView(CurveSession& session, std::function<void()> type);
  ~CurveView() override;

  CurvePlot Plot() const { return CurvePlot(UI_GetLocalRectF(false).Extent()); }
  // The node of a point, which has the keyboard focus while the point has it.
  moxui::ui::UI_Node& PointNode(std::size_t point) const;
  bool IsDragging() const { return mDrag != nullptr; }
  // Brings the focus to the selected point.
  void FocusSelected(moxui::ui::FocusChangeReason reason);

  void SessionChanged();

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  bool UI_DoCursor(moxui::ui::UI_Node* node, moxui::PointT<float> point, unsigned flags) override;
  void UI_FocusChanged(moxui::ui::FocusChangeReason reason) override;
  moxui::ui::AccessibleRole UI_GetAccessibleRole() const override;
  moxcore::Utf8String UI_GetAccessibleName() const override;

 private:
  class Node;
  struct Drag;

  void MatchNodes();
  std::optional<std::size_t> FocusedPoint() const;
  void Press(moxui::ui::MouseEvent const& event);
  bool AddPoint(CurvePoint point);
  void BeginDrag(moxui::PointT<float> place);
  void DragTo(moxui::PointT<float> place);
  void EndDrag(bool takesBack);
  void Hover(std::optional<moxui::PointT<float>> place);

  CurveSession& mSession;
  std::function<void()> mType;
  std::vector<moxcore::utility::IntrusivePtr<Node>> mNodes;
  std::unique_ptr<Drag> mDrag;
  std::optional<std::size_t> mHovered;
  std::optional<CurvePoint> mGhost;
};

}  // namespace playground
