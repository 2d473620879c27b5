#include "QtTransfer.h"

#include "EventTranslation.h"

#include <moxui/ui/UI_DragDropHandler.h>

#include <QUrl>
#include <cstring>

namespace moxui::qt {

namespace {

/// Texts and files have places of their own.
bool IsCarriedOtherwise(QString const& format) {
  return format == "text/uri-list" || format == "text/plain" || format.startsWith("text/plain;");
}

}  // namespace

ui::TransferData FromMimeData(QMimeData const& mimeData) {
  ui::TransferData data;
  for (QUrl const& url : mimeData.urls()) {
    if (url.isLocalFile()) {
      data.files.push_back(ToUtf8(url.toLocalFile()));
    }
  }
  // A list of files has itself as its text: that isn't meant.
  if (mimeData.hasText() && data.files.empty()) {
    data.text = ToUtf16(mimeData.text());
  }
  for (QString const& format : mimeData.formats()) {
    if (IsCarriedOtherwise(format)) {
      continue;
    }
    QByteArray const bytes = mimeData.data(format);
    std::vector<std::byte> copy(static_cast<std::size_t>(bytes.size()));
    if (!copy.empty()) {
      std::memcpy(copy.data(), bytes.constData(), copy.size());
    }
    data.formats.emplace_back(ToUtf8(format), std::move(copy));
  }
  return data;
}

std::unique_ptr<QMimeData> ToMimeData(ui::TransferData const& data) {
  auto mimeData = std::make_unique<QMimeData>();
  if (!data.text.empty()) {
    mimeData->setText(ToQString(data.text));
  }
  if (!data.files.empty()) {
    QList<QUrl> urls;
    for (auto const& file : data.files) {
      urls.push_back(QUrl::fromLocalFile(ToQString(file)));
    }
    mimeData->setUrls(urls);
  }
  for (auto const& [format, bytes] : data.formats) {
    mimeData->setData(ToQString(format), QByteArray(reinterpret_cast<char const*>(bytes.data()),
                                                    static_cast<qsizetype>(bytes.size())));
  }
  return mimeData;
}

int ToEffect(Qt::DropAction action) {
  switch (action) {
    case Qt::CopyAction:
      return ui::DropEffect::kCopy;
    case Qt::MoveAction:
      return ui::DropEffect::kMove;
    case Qt::LinkAction:
      return ui::DropEffect::kLink;
    default:
      return ui::DropEffect::kNone;
  }
}

Qt::DropAction ToAction(int effect) {
  switch (effect) {
    case ui::DropEffect::kCopy:
      return Qt::CopyAction;
    case ui::DropEffect::kMove:
      return Qt::MoveAction;
    case ui::DropEffect::kLink:
      return Qt::LinkAction;
    default:
      return Qt::IgnoreAction;
  }
}

}  // namespace moxui::qt
