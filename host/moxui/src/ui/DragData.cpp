#include <moxui/platform/DragSource.h>
#include <moxui/ui/DragData.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_DragDropHandler.h>
#include <moxui/ui/UI_Node.h>

#include <algorithm>
#include <utility>

namespace moxui::ui {

std::vector<std::byte> const* OS_ReceiveData::GetData(std::string_view format) const {
  auto const found = std::ranges::find_if(
      mData.formats, [&](auto const& one) { return std::string_view(one.first) == format; });
  return found == mData.formats.end() ? nullptr : &found->second;
}

void OS_SendData::SetData(moxcore::Utf8String format, std::vector<std::byte> bytes) {
  mData.formats.emplace_back(std::move(format), std::move(bytes));
}

int OS_SendData::DoDrag(UI_Node* source, int effects) {
  platform::DragSource* const dragSource = platform::GetDragSource();
  if (dragSource == nullptr || mData.IsEmpty()) {
    return DropEffect::kNone;
  }
  moxcore::utility::IntrusivePtr<UI_Node> const kept(source);
  int const effect = dragSource->Drag(source, mData, effects);
  if (source != nullptr && source->UI_GetTree() != nullptr) {
    source->UI_GetTree()->CheckSwallowedRelease();
  }
  return effect;
}

}  // namespace moxui::ui
