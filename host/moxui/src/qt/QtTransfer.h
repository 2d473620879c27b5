#pragma once

#include <moxui/ui/DragData.h>

#include <QMimeData>
#include <memory>

namespace moxui::qt {

ui::TransferData FromMimeData(QMimeData const& mimeData);
std::unique_ptr<QMimeData> ToMimeData(ui::TransferData const& data);

/// One ui::DropEffect and the action that is the same; no effect for actions that mean none here.
int ToEffect(Qt::DropAction action);
Qt::DropAction ToAction(int effect);

}  // namespace moxui::qt
