#include "QtServices.h"

#include "EventTranslation.h"
#include "QtTransfer.h"
#include "QtWindow.h"
#include "WindowWidget.h"

#include <moxui/platform/ModalResponder.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_DragDropHandler.h>
#include <moxui/ui/UI_NodeManager.h>

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QPixmap>
#include <algorithm>
#include <cmath>

namespace moxui::qt {

namespace {

QPoint ToQPoint(PointT<float> point) {
  return {static_cast<int>(std::lround(point.x)), static_cast<int>(std::lround(point.y))};
}

WindowWidget* WidgetOf(ui::NodeTree* tree) {
  auto* const window = tree != nullptr ? dynamic_cast<QtWindow*>(&tree->GetHost()) : nullptr;
  return window != nullptr ? &window->GetWidget() : nullptr;
}

WindowWidget* CurrentWidget() {
  ui::UI_NodeManager const* const manager = ui::UI_NodeManager::Get(false);
  return manager != nullptr ? WidgetOf(manager->GetCurrentTree()) : nullptr;
}

}  // namespace

ui::TransferData QtClipboard::GetData() const {
  QMimeData const* const data = QGuiApplication::clipboard()->mimeData();
  return data != nullptr ? FromMimeData(*data) : ui::TransferData{};
}

void QtClipboard::SetData(ui::TransferData const& data) {
  QGuiApplication::clipboard()->setMimeData(ToMimeData(data).release());
}

void QtCursor::DisplayCursor(platform::CursorID cursor, platform::CursorMode) {
  mCursor = cursor;
  if (WindowWidget* const widget = CurrentWidget()) {
    QCursor const shown = ToQCursor(cursor);
    if (shown.shape() != widget->cursor().shape() || shown.shape() == Qt::BitmapCursor) {
      widget->setCursor(shown);
    }
  }
}

void QtCursor::ShowPlatformCursor(bool show, bool, bool counted) {
  if (counted) {
    mHideCount = std::max(mHideCount + (show ? -1 : 1), 0);
  } else {
    mHideCount = show ? 0 : 1;
  }
  bool const hide = mHideCount > 0;
  if (hide == mIsHidden) {
    return;
  }
  mIsHidden = hide;
  if (hide) {
    QGuiApplication::setOverrideCursor(Qt::BlankCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

PointT<float> QtCursor::GetPosition() const {
  QPoint const place = QCursor::pos();
  return {static_cast<float>(place.x()), static_cast<float>(place.y())};
}

bool QtCursor::SetPosition(PointT<float> position) {
  QCursor::setPos(ToQPoint(position));
  return QCursor::pos() == ToQPoint(position);
}

platform::CursorID QtCursor::MakeCursorFromPNG(std::span<std::byte const> bytes, PointT<float> hotSpot,
                                               float scale) {
  QPixmap picture;
  if (!(scale > 0) || !picture.loadFromData(reinterpret_cast<uchar const*>(bytes.data()),
                                            static_cast<unsigned>(bytes.size()), "PNG")) {
    return platform::CursorID::kArrow;
  }
  picture.setDevicePixelRatio(static_cast<qreal>(scale));
  QPoint const spot = ToQPoint(hotSpot);
  int const id = static_cast<int>(platform::CursorID::kFirstCustom) + static_cast<int>(mCustom.size());
  mCustom.emplace(id, QCursor(picture, spot.x(), spot.y()));
  return static_cast<platform::CursorID>(id);
}

QCursor QtCursor::ToQCursor(platform::CursorID cursor) const {
  switch (cursor) {
    case platform::CursorID::kIBeam:
      return Qt::IBeamCursor;
    case platform::CursorID::kCross:
      return Qt::CrossCursor;
    case platform::CursorID::kOpenHand:
      return Qt::OpenHandCursor;
    case platform::CursorID::kClosedHand:
      return Qt::ClosedHandCursor;
    case platform::CursorID::kPointingHand:
      return Qt::PointingHandCursor;
    case platform::CursorID::kResizeHorizontal:
    case platform::CursorID::kHotText:
      return Qt::SizeHorCursor;
    case platform::CursorID::kResizeVertical:
      return Qt::SizeVerCursor;
    case platform::CursorID::kForbidden:
      return Qt::ForbiddenCursor;
    case platform::CursorID::kWait:
      return Qt::WaitCursor;
    default:
      break;
  }
  auto const custom = mCustom.find(static_cast<int>(cursor));
  return custom != mCustom.end() ? custom->second : QCursor(Qt::ArrowCursor);
}

int QtMenus::Popup(std::vector<ui::OS_MenuItem> const& items, platform::MenuPlace const& place) {
  QMenu menu;
  menu.setLayoutDirection(skins::IsRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
  QAction* initial = nullptr;
  for (auto const& item : items) {
    if (item.id == 0) {
      menu.addSeparator();
      continue;
    }
    // An ampersand would make the next letter a short cut.
    QAction* const action = menu.addAction(ToQString(item.text).replace('&', "&&"));
    action->setData(item.id);
    action->setEnabled(item.isEnabled);
    action->setCheckable(item.isChecked);
    action->setChecked(item.isChecked);
    if (item.id == place.initialID) {
      initial = action;
    }
  }
  menu.setMinimumWidth(static_cast<int>(std::lround(place.minimumWidth)));
  QPoint corner = ToQPoint(place.point);
  if (skins::IsRightToLeft()) {
    corner.rx() -= std::max(menu.sizeHint().width(), menu.minimumWidth());
  }
  QAction const* const chosen = menu.exec(corner, initial);
  return chosen != nullptr ? chosen->data().toInt() : 0;
}

int QtDragSource::Drag(ui::UI_Node* source, ui::TransferData const& data, int effects) {
  WindowWidget* const widget =
      source != nullptr && source->UI_GetTree() != nullptr ? WidgetOf(source->UI_GetTree()) : nullptr;
  if (widget == nullptr) {
    return ui::DropEffect::kNone;
  }
  auto* const drag = new QDrag(widget);  // ends by itself after the drop
  drag->setMimeData(ToMimeData(data).release());
  Qt::DropActions actions;
  actions.setFlag(Qt::CopyAction, (effects & ui::DropEffect::kCopy) != 0);
  actions.setFlag(Qt::MoveAction, (effects & ui::DropEffect::kMove) != 0);
  actions.setFlag(Qt::LinkAction, (effects & ui::DropEffect::kLink) != 0);
  return ToEffect(drag->exec(actions));
}

namespace {

QWidget* ParentOf(platform::FileRequest const& request) {
  auto* const window = dynamic_cast<QtWindow*>(request.parent);
  return window != nullptr ? &window->GetWidget() : nullptr;
}

QString FilterOf(platform::FileRequest const& request) {
  QStringList filters;
  for (auto const& kind : request.kinds) {
    QStringList patterns;
    for (auto const& pattern : kind.patterns) {
      patterns.push_back(ToQString(pattern));
    }
    filters.push_back(ToQString(kind.name) + " (" + patterns.join(' ') + ')');
  }
  return filters.join(";;");
}

std::optional<std::vector<moxcore::Utf8String>> AskResponder(platform::FileRequest const& request) {
  std::vector<moxcore::Utf8String> files;
  platform::ModalRequest modal;
  modal.kind = platform::ModalKind::kFileDialog;
  modal.title = request.title;
  modal.files = &files;
  auto const answer = platform::AskModalResponder(modal);
  if (!answer) {
    return std::nullopt;
  }
  if (*answer == 0) {
    files.clear();
  }
  return files;
}

moxcore::Utf8String FirstOf(std::vector<moxcore::Utf8String> const& files) {
  return files.empty() ? moxcore::Utf8String() : files.front();
}

}  // namespace

std::vector<moxcore::Utf8String> QtFileDialogs::AskForFilesToOpen(platform::FileRequest const& request) {
  if (auto const answered = AskResponder(request)) {
    return *answered;
  }
  QStringList paths;
  if (request.allowsSeveral) {
    paths = QFileDialog::getOpenFileNames(ParentOf(request), ToQString(request.title),
                                          ToQString(request.startPath), FilterOf(request));
  } else if (QString const path =
                 QFileDialog::getOpenFileName(ParentOf(request), ToQString(request.title),
                                              ToQString(request.startPath), FilterOf(request));
             !path.isEmpty()) {
    paths.push_back(path);
  }
  std::vector<moxcore::Utf8String> files;
  for (QString const& path : paths) {
    files.push_back(ToUtf8(path));
  }
  return files;
}

moxcore::Utf8String QtFileDialogs::AskForFileToSave(platform::FileRequest const& request) {
  if (auto const answered = AskResponder(request)) {
    return FirstOf(*answered);
  }
  // Only a dialog of one's own asks before it replaces the file that the suffix makes of a name.
  QFileDialog dialog(ParentOf(request), ToQString(request.title), QString(), FilterOf(request));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(ToQString(request.defaultSuffix));
  if (QFileInfo const start(ToQString(request.startPath)); start.isDir()) {
    dialog.setDirectory(start.filePath());
  } else if (!start.fileName().isEmpty()) {
    if (start.isAbsolute()) {
      dialog.setDirectory(start.path());
    }
    dialog.selectFile(start.fileName());
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    return {};
  }
  return ToUtf8(dialog.selectedFiles().front());
}

moxcore::Utf8String QtFileDialogs::AskForDirectory(platform::FileRequest const& request) {
  if (auto const answered = AskResponder(request)) {
    return FirstOf(*answered);
  }
  return ToUtf8(QFileDialog::getExistingDirectory(ParentOf(request), ToQString(request.title),
                                                  ToQString(request.startPath)));
}

}  // namespace moxui::qt
