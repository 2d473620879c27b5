#include "WindowWidget.h"

#include "EventTranslation.h"
#include "QtApplication.h"
#include "QtTransfer.h"
#include "QtWindow.h"

#include <moxui/ui/AccessibleText.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_DragDropHandler.h>

#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTabletEvent>
#include <QTouchEvent>
#include <QWheelEvent>
#include <algorithm>
#include <exception>
#include <utility>

namespace moxui::qt {

namespace {

/// How far content moves for one notch of a wheel, whose angle is 120 eighths of a degree.
constexpr float kPixelsPerNotch = 48;
constexpr float kAnglePerNotch = 120;

PointT<float> ToPoint(QPointF point) {
  return {static_cast<float>(point.x()), static_cast<float>(point.y())};
}

}  // namespace

WindowWidget::WindowWidget(QtWindow& window, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), mApplication(window.GetApplication()), mWindow(&window) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_AcceptTouchEvents);
  setMouseTracking(true);
  setAcceptDrops(true);
  setFocusPolicy(Qt::StrongFocus);
}

void WindowWidget::ReleaseWindows() {
  QObjectList const all = children();
  for (QObject* const child : all) {
    auto* const window = qobject_cast<QWidget*>(child);
    if (window == nullptr || !window->isWindow()) {
      continue;
    }
    bool const isShown = window->isVisible();
    window->setParent(nullptr, window->windowFlags());
    window->setVisible(isShown);
  }
}

void WindowWidget::End(std::unique_ptr<WindowWidget> widget) {
  widget->mWindow = nullptr;
  if (widget->mDepth > 0) {
    widget->hide();
    widget->setParent(nullptr);
    widget.release();  // NOLINT(bugprone-unused-return-value): deleted by the outermost event
  }
}

bool WindowWidget::event(QEvent* event) {
  if (event->type() == QEvent::DeferredDelete) {
    return QWidget::event(event);  // which deletes this
  }
  ++mDepth;
  bool isTaken = false;
  // Exceptions must not cross Qt's event loop: the application throws them on when the loop has ended.
  try {
    isTaken = mWindow != nullptr && mWindow->FindTree() != nullptr && HandleEvent(*event);
  } catch (...) {
    mApplication.CatchException(std::current_exception());
    isTaken = true;
  }
  isTaken = isTaken || QWidget::event(event);
  --mDepth;
  if (mDepth == 0 && mWindow == nullptr) {
    deleteLater();  // not before all loops within this event have ended
  }
  return isTaken;
}

bool WindowWidget::HandleEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return HandleMouse(event, ui::PointerAction::kPress);
    case QEvent::MouseButtonRelease:
      return HandleMouse(event, ui::PointerAction::kRelease);
    case QEvent::MouseMove:
    case QEvent::Enter:
      return HandleMouse(event, ui::PointerAction::kMove);
    case QEvent::Leave:
      mWindow->GetTree().HandlePointerLeft();
      return true;
    case QEvent::Wheel:
      return HandleWheel(event);
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
      return HandleTablet(static_cast<QTabletEvent&>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
      return HandleTouch(static_cast<QTouchEvent&>(event));
    case QEvent::TouchCancel:
      return CancelTouch();
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return HandleKey(event);
    case QEvent::InputMethod:
      return HandleInputMethod(event);
    case QEvent::DragEnter:
      return HandleDrag(event, ui::DragPhase::kEnter);
    case QEvent::DragMove:
      return HandleDrag(event, ui::DragPhase::kOver);
    case QEvent::Drop:
      return HandleDrag(event, ui::DragPhase::kDrop);
    case QEvent::DragLeave:
      return HandleDragLeave();
    case QEvent::WindowActivate:
      mWindow->GetTree().SetActive(true);
      return false;
    case QEvent::WindowDeactivate:
      mWindow->GetTree().SetActive(false);
      return false;
    case QEvent::WindowBlocked:
      mWindow->GetTree().BlockByModal();
      return false;
    case QEvent::WindowUnblocked:
      mWindow->GetTree().CheckSwallowedRelease();
      return false;
    case QEvent::Resize:
    case QEvent::ScreenChangeInternal:
      mWindow->Resized();
      return false;
    case QEvent::Close:
      event.setAccepted(mWindow->CloseRequested());  // may end the window
      return true;
    default:
      return false;
  }
}

bool WindowWidget::HandleMouse(QEvent& event, ui::PointerAction action) {
  auto const& pointer = static_cast<QSinglePointEvent const&>(event);
  ui::PointerInput input;
  input.action = action;
  input.position = ToPoint(pointer.position() / mWindow->GetZoom());
  input.button = ToMouseButton(pointer.button());
  input.modKeys = ToModKeys(pointer.modifiers());
  input.osEvent = ui::OS_Event(&event);
  if (action != ui::PointerAction::kMove && input.button == ui::MouseButton::kNone) {
    return false;
  }
  mWindow->GetTree().HandlePointer(input);
  return true;
}

bool WindowWidget::HandleWheel(QEvent& event) {
  auto const& wheel = static_cast<QWheelEvent const&>(event);
  ui::PointerInput input;
  input.action = ui::PointerAction::kWheel;
  input.position = ToPoint(wheel.position() / mWindow->GetZoom());
  input.modKeys = ToModKeys(wheel.modifiers());
  input.osEvent = ui::OS_Event(&event);
  if (wheel.pixelDelta().isNull()) {
    PointT<float> const angle = ToPoint(wheel.angleDelta());
    input.wheelDistance = {angle.x / kAnglePerNotch * kPixelsPerNotch,
                           angle.y / kAnglePerNotch * kPixelsPerNotch};
  } else {
    input.wheelDistance = ToPoint(QPointF(wheel.pixelDelta()) / mWindow->GetZoom());
  }
  mWindow->GetTree().HandlePointer(input);
  return true;
}

bool WindowWidget::HandleTablet(QTabletEvent& event) {
  ui::PointerInput input;
  input.action = event.type() == QEvent::TabletPress     ? ui::PointerAction::kPress
                 : event.type() == QEvent::TabletRelease ? ui::PointerAction::kRelease
                                                         : ui::PointerAction::kMove;
  input.position = ToPoint(event.position() / mWindow->GetZoom());
  input.button = ToMouseButton(event.button());
  input.modKeys = ToModKeys(event.modifiers());
  input.subType = ui::PointerSubType::kPen;
  input.osEvent = ui::OS_Event(&event);
  mWindow->GetTree().HandlePointer(input);
  event.accept();  // else the same comes again as a mouse event
  return true;
}

bool WindowWidget::HandleTouch(QTouchEvent& event) {
  event.accept();
  if (event.type() == QEvent::TouchBegin) {
    mFinger.reset();
  }
  // The first finger points until it is lifted, others are left alone.
  auto const& points = event.points();
  auto const found = std::ranges::find_if(points, [this](QEventPoint const& one) {
    return mFinger ? one.id() == *mFinger : one.state() == QEventPoint::Pressed;
  });
  if (found == points.end()) {
    return true;
  }
  QEventPoint const& point = *found;
  ui::PointerInput input;
  input.subType = ui::PointerSubType::kTouch;
  // In the window, which this widget is.
  input.position = ToPoint(point.scenePosition() / mWindow->GetZoom());
  input.modKeys = ToModKeys(event.modifiers());
  input.osEvent = ui::OS_Event(&event);
  switch (point.state()) {
    case QEventPoint::Pressed:
      mFinger = point.id();
      input.action = ui::PointerAction::kPress;
      input.button = ui::MouseButton::kLeft;
      break;
    case QEventPoint::Released:
      mFinger.reset();
      input.action = ui::PointerAction::kRelease;
      input.button = ui::MouseButton::kLeft;
      break;
    case QEventPoint::Updated:
      break;
    default:
      return true;
  }
  mWindow->GetTree().HandlePointer(input);
  return true;
}

bool WindowWidget::CancelTouch() {
  mFinger.reset();
  mWindow->GetTree().BlockByModal();
  if (mWindow != nullptr) {
    mWindow->GetTree().CheckSwallowedRelease();
  }
  return true;
}

bool WindowWidget::HandleKey(QEvent& event) {
  auto& key = static_cast<QKeyEvent&>(event);
  key.setAccepted(mWindow->GetTree().HandleKey(ToKeyboardEvent(key)));
  return true;
}

namespace {

std::size_t CaretOf(QInputMethodEvent const& input) {
  for (auto const& attribute : input.attributes()) {
    if (attribute.type == QInputMethodEvent::Cursor) {
      return static_cast<std::size_t>(std::max(attribute.start, 0));
    }
  }
  return static_cast<std::size_t>(input.preeditString().size());
}

}  // namespace

bool WindowWidget::HandleInputMethod(QEvent& event) {
  auto& input = static_cast<QInputMethodEvent&>(event);
  // What was unfinished goes first: a finished text takes its place.
  if (moxcore::utility::IntrusivePtr<ui::UI_Node> const leaf = mWindow->GetTree().GetFocusLeaf()) {
    leaf->UI_DoComposition(ToUtf16(input.preeditString()), CaretOf(input));
  }
  if (mWindow != nullptr && !input.commitString().isEmpty()) {
    mWindow->GetTree().HandleKey({ui::KeyAction::kKeyDown,
                                  ui::KeyboardCode::kNone,
                                  {},
                                  ToUtf16(input.commitString()),
                                  false,
                                  ui::OS_Event(&event)});
  }
  input.accept();
  return true;
}

bool WindowWidget::HandleDrag(QEvent& event, ui::DragPhase phase) {
  auto& drop = static_cast<QDropEvent&>(event);
  if (!mDragged || phase == ui::DragPhase::kEnter) {
    // Once for each drag: other programs' data may be large and slow to come.
    mDragged = std::make_shared<ui::OS_ReceiveData>(FromMimeData(*drop.mimeData()));
  }
  auto const dragged = mDragged;
  dragged->SetModKey(ToModKeys(drop.modifiers()));
  if (phase == ui::DragPhase::kDrop) {
    mDragged.reset();
  }
  int const effect = mWindow->GetTree().HandleDrag(phase, ToPoint(drop.position() / mWindow->GetZoom()),
                                                   *dragged, ToEffect(drop.proposedAction()));
  drop.setDropAction(ToAction(effect));
  // A refused enter would end the drag for this window: another view may want it further on.
  drop.setAccepted(effect != ui::DropEffect::kNone || phase == ui::DragPhase::kEnter);
  return true;
}

bool WindowWidget::HandleDragLeave() {
  ui::OS_ReceiveData nothing{ui::TransferData{}};
  auto const dragged = std::exchange(mDragged, nullptr);
  mWindow->GetTree().HandleDrag(ui::DragPhase::kLeave, {}, dragged ? *dragged : nothing,
                                ui::DropEffect::kNone);
  return true;
}

void WindowWidget::paintEvent(QPaintEvent* event) {
  if (mWindow == nullptr) {
    return;
  }
  QPainter painter(this);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  QImage const& picture = mWindow->GetPicture();
  for (QRect const& rect : event->region()) {
    QRectF const source(QPointF(rect.topLeft()) * picture.devicePixelRatio(),
                        QSizeF(rect.size()) * picture.devicePixelRatio());
    painter.drawImage(QRectF(rect), picture, source);
  }
}

namespace {

QVariant AskEditedText(ui::AccessibleText const& text, bool isMultiLine, Qt::InputMethodQuery query) {
  platform::TextSelection const selection = text.GetSelection();
  switch (query) {
    case Qt::ImSurroundingText:
      return ToQString(text.GetText());
    case Qt::ImCursorPosition:
      return static_cast<int>(selection.caret);
    case Qt::ImAnchorPosition:
      return static_cast<int>(selection.anchor);
    case Qt::ImCurrentSelection:
      return ToQString(text.GetText())
          .mid(static_cast<qsizetype>(selection.Begin()),
               static_cast<qsizetype>(selection.End() - selection.Begin()));
    case Qt::ImHints:
      return static_cast<int>(isMultiLine ? Qt::ImhMultiLine : Qt::ImhNone);
    default:
      return {};
  }
}

}  // namespace

QVariant WindowWidget::inputMethodQuery(Qt::InputMethodQuery query) const {
  ui::UI_Node* const leaf =
      mWindow != nullptr && mWindow->FindTree() != nullptr ? mWindow->GetTree().GetFocusLeaf() : nullptr;
  if (leaf == nullptr) {
    return QWidget::inputMethodQuery(query);
  }
  if (query == Qt::ImCursorRectangle) {
    RectT<float> const rect = leaf->UI_GetTextInputRect();
    PointT<float> const place = leaf->UI_LocalToGlobalF(rect.TopLeft());
    return QRectF(mapFromGlobal(QPointF(place.x, place.y)),
                  QSizeF(rect.width, rect.height) * mWindow->GetZoom());
  }
  ui::AccessibleText const* const text = leaf->UI_GetAccessibleText();
  QVariant const known =
      text != nullptr ? AskEditedText(*text, leaf->UI_GetAccessibleState().isMultiLine, query) : QVariant();
  return known.isValid() ? known : QWidget::inputMethodQuery(query);
}

}  // namespace moxui::qt
