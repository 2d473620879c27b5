#pragma once

#include <moxui/ui/DragData.h>

#include <QMimeData>
#include <memory>

namespace moxui::qt {

ui::TransferData FromMimeData(QMimeData const& mimeData);
std::unique_ptr<QMimeData> ToMimeData(ui::TransferData const& data);

}  // namespace moxui::qt
