#pragma once

#include <QFont>

namespace moxui::qt {

/// The font that Qt's own menus and boxes are set in: the house font, drawn alike on every platform.
QFont HouseFont();

}  // namespace moxui::qt
