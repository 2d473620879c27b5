#include "QtWindow.h"

#include "../ui/ModalScope.h"
#include "EventTranslation.h"
#include "ImageConversion.h"
#include "NodeInterface.h"
#include "QtApplication.h"
#include "WindowWidget.h"

#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/UI_Node.h>

#include <QApplication>
#include <QCursor>
#include <QInputMethod>
#include <QPainter>
#include <QScreen>
#include <QStyleHints>
#include <QTextDocument>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace moxui::qt {

namespace {

PointT<float> ToPoint(QPointF point) {
  return {static_cast<float>(point.x()), static_cast<float>(point.y())};
}

// The longest side of a window, wider than any screen, that its picture has room for.
constexpr float kLongestSide = 16384.0F;
constexpr float kFarthestPlace = 1048576.0F;

int ToSide(float length) {
  // Written so that what isn't a number is the least too.
  return length > 1.0F ? static_cast<int>(std::ceil(std::min(length, kLongestSide))) : 1;
}

int ToPlace(float place) {
  return std::isnan(place) ? 0 : static_cast<int>(std::clamp(place, -kFarthestPlace, kFarthestPlace));
}

// Qt takes what looks like marked-up text as such: a name with an angle bracket would lose what follows it.
QString AsPlainToolTip(QString const& text) {
  return Qt::mightBeRichText(text) ? "<p style='white-space:pre'>" + text.toHtmlEscaped() + "</p>" : text;
}

QWidget* ParentOf(platform::WindowOptions const& options) {
  auto* const parent = dynamic_cast<QtWindow*>(options.parent);
  return parent != nullptr ? &parent->GetWidget() : nullptr;
}

}  // namespace

QtWindow::QtWindow(QtApplication& application, platform::WindowOptions const& options)
    : mApplication(application), mBackground(options.background) {
  mWidget = std::make_unique<WindowWidget>(*this, ParentOf(options),
                                           options.isDialog ? Qt::WindowFlags(Qt::Dialog) : Qt::Window);
  SetTitle(options.title);
  SetSize(options.size);
  if (!options.isResizable) {
    mWidget->setFixedSize(mWidget->size());
  }
  mTree = std::make_unique<ui::NodeTree>(*this);
  mTree->SetActive(false);
  Resized();
  mFrameTimer.setSingleShot(true);
  mFrameTimer.setInterval(0);
  mFrameTimer.callOnTimeout([this, &application, life = mLife] {
    try {
      QRegion const changed = PaintFrame();
      if (!life->hasEnded) {
        mWidget->update(changed);
      }
    } catch (...) {
      application.CatchException(std::current_exception());
    }
  });
  mWakeUpTimer.setSingleShot(true);
  mWakeUpTimer.setTimerType(Qt::PreciseTimer);
  mWakeUpTimer.callOnTimeout([this, &application] {
    try {
      mTree->HandleTime();
    } catch (...) {
      application.CatchException(std::current_exception());
    }
  });
}

QtWindow::~QtWindow() {
  mLife->hasEnded = true;
  if (mModalLoop != nullptr) {
    mModalLoop->exit();
  }
  mTree->SetRoot(nullptr);  // while its nodes can still ask the window
  mTree.reset();
  mWidget->ReleaseWindows();
  WindowWidget::End(std::move(mWidget));
}

void QtWindow::Resized() {
  if (!mTree) {
    return;
  }
  auto const life = mLife;
  mTree->SetScale(GetScale());
  if (!life->hasEnded) {
    mTree->SetSize(
        {static_cast<float>(mWidget->width()) / mZoom, static_cast<float>(mWidget->height()) / mZoom});
  }
  if (!life->hasEnded) {
    FitPicture();
  }
}

void QtWindow::FitPicture() {
  qreal const ratio = mWidget->devicePixelRatioF();
  QSize const pixels(static_cast<int>(std::ceil(mWidget->width() * ratio)),
                     static_cast<int>(std::ceil(mWidget->height() * ratio)));
  if (mSurface && mPicture.size() == pixels && mPicture.devicePixelRatio() == ratio &&
      mSurface->GetScale() == GetScale()) {
    return;
  }
  mSurface.Reset();
  mPicture = QImage(pixels.expandedTo(QSize(1, 1)), QImage::Format_RGB32);
  mPicture.setDevicePixelRatio(ratio);
  mPicture.fill(ToQColor(mBackground));
  mSurface = scriber::NewRasterSurfaceOver(mPicture.bits(), mPicture.width(), mPicture.height(),
                                           static_cast<int>(mPicture.bytesPerLine()), GetScale(), true);
  mTree->AddDamage({0, 0, mTree->GetSize().width, mTree->GetSize().height});
}

void QtWindow::FillBackground(RectT<float> const& rect) {
  float const ratio = mSurface->GetScale();
  QRect const pixels(QPoint(static_cast<int>(std::lround(rect.left * ratio)),
                            static_cast<int>(std::lround(rect.top * ratio))),
                     QPoint(static_cast<int>(std::lround(rect.Right() * ratio)) - 1,
                            static_cast<int>(std::lround(rect.Bottom() * ratio)) - 1));
  QRect const inside = pixels.intersected(QRect(QPoint(0, 0), mPicture.size()));
  QRgb const colour = ToQColor(mBackground).rgb() | 0xff000000U;
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    // The surface paints into these bytes: scanLine would detach a shared picture.
    auto* const row = reinterpret_cast<QRgb*>(const_cast<uchar*>(mPicture.constScanLine(y)));
    std::fill(row + inside.left(), row + inside.right() + 1, colour);
  }
}

QRegion QtWindow::PaintFrame() {
  auto const life = mLife;
  mTree->PrepareFrame();
  if (life->hasEnded) {
    return {};
  }
  FitPicture();
  QRegion changed;
  if (!mSurface || mTree->GetDamage().empty()) {
    return changed;
  }
  // Held: while they are painted, nodes may have the window resized or end it.
  QImage const picture = mPicture;
  scriber::SurfaceP const surface = mSurface;
  scriber::Scriber scriber(mApplication.GetDrawSupplier(), surface.Get());
  mTree->PaintDamage(scriber, [&](RectT<float> const& rect) {
    if (life->hasEnded) {
      return;
    }
    FillBackground(rect);
    changed +=
        QRectF(rect.left * mZoom, rect.top * mZoom, rect.width * mZoom, rect.height * mZoom).toAlignedRect();
  });
  return changed;
}

bool QtWindow::CloseRequested() {
  auto const life = mLife;
  auto const mayClose = mCloseFunction;
  if (mayClose && !mayClose()) {
    return false;
  }
  if (!life->hasEnded && mModalLoop != nullptr) {
    EndModal(mModalCloseAnswer);
  }
  return true;
}

void QtWindow::Show() {
  mWidget->show();
}
void QtWindow::Hide() {
  mWidget->hide();
}
bool QtWindow::IsShown() const {
  return mWidget->isVisible();
}
void QtWindow::SetTitle(moxcore::Utf16String const& title) {
  mWidget->setWindowTitle(ToQString(title));
}

void QtWindow::SetSize(ExtentT<float> size) {
  mWidget->resize(ToSide(size.width), ToSide(size.height));
  Resized();
}

void QtWindow::SetMinimumSize(ExtentT<float> size) {
  mWidget->setMinimumSize(ToSide(size.width), ToSide(size.height));
}

int QtWindow::RunModal(int closeAnswer) {
  if (mModalLoop != nullptr) {
    return closeAnswer;
  }
  // A handler may end the window while it runs.
  auto const life = mLife;
  QtApplication& application = mApplication;
  QEventLoop loop;
  mModalLoop = &loop;
  life->answer.reset();
  mModalCloseAnswer = closeAnswer;
  {
    QtApplication::LoopScope const scope(application, loop);
    ui::ModalScope const modal(*mTree);
    mWidget->setWindowModality(Qt::ApplicationModal);
    mWidget->show();
    // What opening told handlers may have answered: a loop doesn't remember that it was left before it ran.
    if (!life->answer && !life->hasEnded && !application.HasCaught()) {
      loop.exec();
    }
  }
  if (!life->hasEnded) {
    mModalLoop = nullptr;
    mWidget->hide();
  }
  if (!life->hasEnded) {
    mWidget->setWindowModality(Qt::NonModal);
  }
  application.ThrowCaught();
  return life->answer.value_or(closeAnswer);
}

void QtWindow::EndModal(int answer) {
  if (mModalLoop != nullptr) {
    mLife->answer = answer;
    mModalLoop->exit();
  }
}

void QtWindow::SetBackground(ColorRGBA const& colour) {
  mBackground = colour;
  mTree->AddDamage({0, 0, mTree->GetSize().width, mTree->GetSize().height});
}

void QtWindow::SetIcon(scriber::ImageInterface const& icon) {
  mWidget->setWindowIcon(QIcon(QPixmap::fromImage(ToQImage(icon))));
}

void QtWindow::SetPosition(PointT<float> position) {
  mWidget->move(ToPlace(position.x), ToPlace(position.y));
}

PointT<float> QtWindow::GetPosition() const {
  return ToPoint(mWidget->pos());
}
void QtWindow::Activate() {
  mWidget->raise();
  mWidget->activateWindow();
}
bool QtWindow::IsActive() const {
  return mWidget->isActiveWindow();
}
bool QtWindow::IsMaximized() const {
  return mWidget->isMaximized();
}
void QtWindow::SetMaximized(bool maximized) {
  mWidget->setWindowState(maximized ? mWidget->windowState() | Qt::WindowMaximized
                                    : mWidget->windowState() & ~Qt::WindowMaximized);
}
void QtWindow::SetZoom(float zoom) {
  if (zoom > 0 && std::isfinite(zoom) && zoom != mZoom) {
    mZoom = zoom;
    Resized();
  }
}
void* QtWindow::GetNativeHandle() const {
  return mWidget.get();
}

void QtWindow::RequestFrame() {
  mFrameTimer.start();
}

void QtWindow::PaintNow() {
  auto const life = mLife;
  QRegion const changed = PaintFrame();
  if (!life->hasEnded && !changed.isEmpty()) {
    mWidget->repaint(changed);
  }
}

void QtWindow::RequestWakeUp(double time) {
  if (time < 0) {
    mWakeUpTimer.stop();
    return;
  }
  double const wait = std::clamp(std::ceil(time - GetTime()), 0.0, 86400000.0);
  mWakeUpTimer.start(static_cast<int>(wait));
}

double QtWindow::GetTime() const {
  return mApplication.GetTime();
}
PointT<float> QtWindow::GetOrigin() const {
  return ToPoint(mWidget->mapToGlobal(QPointF(0, 0)));
}
float QtWindow::GetScale() const {
  return static_cast<float>(mWidget->devicePixelRatioF()) * mZoom;
}
PointT<float> QtWindow::GetPointerPosition() const {
  return ToPoint(QCursor::pos());
}
void QtWindow::SetPointerPosition(PointT<float> position) {
  mApplication.GetCursor().SetPosition(position);
}
RectT<float> QtWindow::GetPointerBounds() const {
  QScreen const* screen = QGuiApplication::screenAt(QCursor::pos());
  screen = screen != nullptr ? screen : mWidget->screen();
  QRectF const bounds = screen != nullptr ? QRectF(screen->geometry()) : QRectF();
  return {static_cast<float>(bounds.x()), static_cast<float>(bounds.y()), static_cast<float>(bounds.width()),
          static_cast<float>(bounds.height())};
}
ui::ModKeys QtWindow::GetModKeys() const {
  return ToModKeys(QGuiApplication::keyboardModifiers());
}
ui::MouseButtons QtWindow::GetMouseButtons() const {
  return ToMouseButtons(QGuiApplication::mouseButtons());
}

ui::ClickLimits QtWindow::GetClickLimits() const {
  auto const* const hints = QGuiApplication::styleHints();
  return {static_cast<double>(hints->mouseDoubleClickInterval()),
          static_cast<float>(hints->mouseDoubleClickDistance())};
}

void QtWindow::ResetCursor() {
  mApplication.GetCursor().DisplayCursor(platform::CursorID::kArrow, platform::CursorMode::kUntilNext);
}

void QtWindow::ShowToolTip(std::string_view text, PointT<float> position) {
  QPoint const place =
      mWidget->mapToGlobal(QPointF(position.x * mZoom, position.y * mZoom)).toPoint() + QPoint(0, 16);
  QToolTip::showText(place,
                     AsPlainToolTip(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))),
                     mWidget.get());
}

void QtWindow::FocusMoved() {
  ui::UI_Node* const leaf = mTree->GetFocusLeaf();
  mWidget->setAttribute(Qt::WA_InputMethodEnabled,
                        leaf != nullptr && leaf->UI_GetAccessibleRole() == ui::AccessibleRole::kTextField);
  // It asks anew what it may do here, and what lies around the caret.
  QGuiApplication::inputMethod()->update(Qt::ImQueryAll);
  if (leaf != nullptr && QAccessible::isActive()) {
    QAccessibleEvent event(NodeInterface::Of(*leaf), QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
  }
}

void QtWindow::ResetTextInput() {
  QGuiApplication::inputMethod()->reset();
}

void QtWindow::AccessibleChanged(ui::UI_Node& node, ui::AccessibleChange change) {
  if (change == ui::AccessibleChange::kDetached) {
    NodeInterface::Drop(node);
  } else {
    NodeInterface::Tell(node, change);
  }
}

}  // namespace moxui::qt
