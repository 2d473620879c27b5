#pragma once

#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_SubView.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace moxui {

/// What nodes of one test have heard, in order.
using Log = std::vector<std::string>;

/// A view that writes down what it hears, and does what the test wants of it.
class LoggingNode : public ui::UI_SubView {
 public:
  LoggingNode(Log& log, std::string name) : mLog(log), mName(std::move(name)) {}

  void UI_Draw(scriber::Scriber* scriber) const override {
    ++drawCount;
    clip = scriber->GetSurface()->GetClipBounds();
    if (colour.alpha > 0) {
      scriber->GetSurface()->FillRect(UI_GetLocalRectF(ui::RectSpace::kOwn), colour);
    }
    if (onDraw) {
      onDraw(scriber);
    }
    ui::UI_SubView::UI_Draw(scriber);
  }
  PaddingT<float> UI_GetDrawOverhang() const override { return overhang; }

  bool UI_DoPrePointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) override {
    if (logsPre && !event.IsAction(ui::PointerAction::kMove)) {
      Write("pre", node);
    }
    return takesPre;
  }
  bool UI_DoPointerEvent(ui::UI_Node* node, ui::PointerEvent const& event) override {
    lastPosition = event.GetPosition();
    if (ui::WheelEvent::GetWheelEventForPointerEvent(event) != nullptr) {
      Write("wheel", node);
      return takes;
    }
    return ui::UI_SubView::UI_DoPointerEvent(node, event);
  }
  bool UI_DoMouseEvent(ui::UI_Node* node, ui::MouseEvent const& event) override {
    lastButton = event.GetButton();
    lastClickCount = event.GetClickCount();
    lastModKeys = event.GetModKey();
    lastSubType = event.GetSubType();
    switch (event.GetAction()) {
      case ui::PointerAction::kPress:
        Write("press", node);
        break;
      case ui::PointerAction::kRelease:
        Write("release", node);
        break;
      case ui::PointerAction::kLeave:
        Write("leave", node);
        break;
      default:
        if (logsMoves) {
          Write("move", node);
        }
        break;
    }
    if (onMouse) {
      onMouse(event);
    }
    return takes && !event.IsAction(ui::PointerAction::kLeave);
  }
  bool UI_DoPreKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override {
    if (event.IsAction(ui::KeyAction::kKeyDown) && logsPre) {
      Write("prekey", node);
    }
    return takesPre;
  }
  bool UI_DoKeyboardEvent(ui::UI_Node* node, ui::KeyboardEvent const& event) override {
    if (event.IsAction(ui::KeyAction::kKeyDown)) {
      Write("key", node);
    }
    return takesKeys;
  }
  void UI_FocusChanged(ui::FocusChangeReason reason) override {
    Write("focus" + std::to_string(static_cast<int>(reason)), this);
    if (onFocus) {
      onFocus(reason);
    }
  }
  bool UI_WantsKeyboardFocus() const override { return wantsFocus; }
  bool UI_DoTimerNotify(int id) override {
    Write("timer" + std::to_string(id), this);
    if (onTimer) {
      onTimer(id);
    }
    return true;
  }
  bool UI_DoCursor(ui::UI_Node* node, PointT<float> point, unsigned) override {
    if (logsCursor) {
      Write("cursor", node);
    }
    lastPosition = point;
    return takesCursor;
  }
  void UI_SizeChanged(RectT<float> const& rect) override {
    sizes.push_back(rect);
    ui::UI_SubView::UI_SizeChanged(rect);
  }
  void UI_ScaleChanged(float scale) override {
    Write("scale" + std::to_string(static_cast<int>(scale)), this);
  }
  bool UI_InvalidateOnMouseOverChange(bool over) override {
    if (logsMouseOver) {
      Write(over ? "over" : "out", this);
    }
    return repaintsOnHover;
  }
  void UI_LayoutChildren() override { Write("layout", this); }

  mutable int drawCount = 0;
  mutable RectT<float> clip;
  ColorRGBA colour{0, 0, 0, 0};
  PaddingT<float> overhang;
  std::vector<RectT<float>> sizes;
  bool takes = false;
  bool takesPre = false;
  bool takesKeys = false;
  bool takesCursor = false;
  bool wantsFocus = false;
  bool repaintsOnHover = false;
  bool logsPre = false;
  bool logsMoves = false;
  bool logsCursor = false;
  bool logsMouseOver = false;
  std::function<void(scriber::Scriber*)> onDraw;
  std::function<void(ui::MouseEvent const&)> onMouse;
  std::function<void(ui::FocusChangeReason)> onFocus;
  std::function<void(int)> onTimer;
  PointT<float> lastPosition;
  ui::MouseButton lastButton = ui::MouseButton::kNone;
  ui::ModKeys lastModKeys;
  ui::PointerSubType lastSubType = ui::PointerSubType::kMouse;
  int lastClickCount = -1;

 private:
  void Write(std::string const& what, ui::UI_Node const* target) {
    auto const* const other = dynamic_cast<LoggingNode const*>(target);
    bool const isOwn = target == this;
    mLog.push_back(mName + " " + what + (isOwn ? "" : other != nullptr ? " of " + other->mName : " of ?"));
  }

  Log& mLog;
  std::string mName;
};

using LoggingNodePtr = moxcore::utility::IntrusivePtr<LoggingNode>;

/// A new view at a place in its parent.
inline LoggingNodePtr AddNode(ui::UI_SubView& parent, Log& log, std::string name, RectT<float> const& rect) {
  auto node = moxcore::utility::MakeIntrusive<LoggingNode>(log, std::move(name));
  node->UI_SetLocalRectF(rect);
  parent.ChildPushBack(node);
  return node;
}

}  // namespace moxui
