#include <moxui/platform/Application.h>
#include <moxui/platform/Clipboard.h>
#include <moxui/platform/CursorControl.h>
#include <moxui/platform/DragSource.h>
#include <moxui/platform/FileDialogs.h>
#include <moxui/platform/MenuPresenter.h>
#include <moxui/platform/PaintTarget.h>
#include <moxui/platform/TextEditor.h>
#include <moxui/platform/Window.h>

#include <utility>

namespace moxui::platform {

namespace {

DragSource* gDragSource = nullptr;

}  // namespace

Application::~Application() = default;
Clipboard::~Clipboard() = default;
CursorControl::~CursorControl() = default;
DragSource::~DragSource() = default;
FileDialogs::~FileDialogs() = default;
MenuPresenter::~MenuPresenter() = default;
PaintTarget::~PaintTarget() = default;
TextEditor::~TextEditor() = default;
Window::~Window() {
  *mReference = nullptr;
}

DragSource* SetDragSource(DragSource* source) {
  return std::exchange(gDragSource, source);
}
DragSource* GetDragSource() {
  Application* const application = Application::Get();
  if (gDragSource != nullptr || application == nullptr) {
    return gDragSource;
  }
  return &application->GetDragSource();
}

}  // namespace moxui::platform
