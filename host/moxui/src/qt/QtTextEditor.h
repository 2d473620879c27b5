#pragma once

#include <moxui/platform/TextEditor.h>

#include <memory>

namespace moxui::qt {

/// An editor on a widget of Qt's that is never shown.
std::unique_ptr<platform::TextEditor> NewTextEditor(bool multiLine);

}  // namespace moxui::qt
