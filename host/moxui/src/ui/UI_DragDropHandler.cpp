#include <moxui/ui/UI_DragDropHandler.h>

#include <utility>

namespace moxui::ui {

struct UI_DragDropHandler::Functions {
  WantsFunction wants;
  DragFunction enter;
  DragFunction over;
  DragFunction drop;
  LeaveFunction leave;
};

UI_DragDropHandler::UI_DragDropHandler() = default;
UI_DragDropHandler::~UI_DragDropHandler() = default;

UI_DragDropHandler::Functions& UI_DragDropHandler::MakeFunctions() {
  // A new set each time: one that is running keeps its own until it is done.
  mFunctions = mFunctions ? std::make_shared<Functions>(*mFunctions) : std::make_shared<Functions>();
  return *mFunctions;
}

void UI_DragDropHandler::UI_InstallWantsDragDropEventsFunction(WantsFunction function) {
  MakeFunctions().wants = std::move(function);
}

void UI_DragDropHandler::UI_InstallHandleDragEnterFunction(DragFunction function) {
  MakeFunctions().enter = std::move(function);
}

void UI_DragDropHandler::UI_InstallHandleDragOverFunction(DragFunction function) {
  MakeFunctions().over = std::move(function);
}

void UI_DragDropHandler::UI_InstallHandleDropFunction(DragFunction function) {
  MakeFunctions().drop = std::move(function);
}

void UI_DragDropHandler::UI_InstallHandleDragLeaveFunction(LeaveFunction function) {
  MakeFunctions().leave = std::move(function);
}

bool UI_DragDropHandler::WantsDragDropEvents() const {
  auto const functions = mFunctions;
  if (!functions) {
    return false;
  }
  if (functions->wants) {
    return functions->wants();
  }
  return functions->enter || functions->over || functions->drop;
}

bool UI_DragDropHandler::HasDragOverFunction() const {
  return mFunctions && mFunctions->over;
}

bool UI_DragDropHandler::HandleDragEnter(PointT<float> point, OS_ReceiveData& data, int& effect) const {
  auto const functions = mFunctions;
  return functions && (!functions->enter || functions->enter(point, data, effect));
}

bool UI_DragDropHandler::HandleDragOver(PointT<float> point, OS_ReceiveData& data, int& effect) const {
  auto const functions = mFunctions;
  return functions && (!functions->over || functions->over(point, data, effect));
}

bool UI_DragDropHandler::HandleDrop(PointT<float> point, OS_ReceiveData& data, int& effect) const {
  auto const functions = mFunctions;
  return functions && functions->drop && functions->drop(point, data, effect);
}

void UI_DragDropHandler::HandleDragLeave(OS_ReceiveData& data) const {
  auto const functions = mFunctions;
  if (functions && functions->leave) {
    functions->leave(data);
  }
}

}  // namespace moxui::ui
