#include <moxui/platform/Application.h>
#include <moxui/platform/MenuPresenter.h>
#include <moxui/platform/ModalResponder.h>
#include <moxui/ui/OS_Menu.h>

#include <algorithm>
#include <utility>

namespace moxui::ui {

void OS_Menu::AddItem(int id, moxcore::Utf16String text) {
  mItems.push_back({.id = id, .text = std::move(text)});
}

void OS_Menu::AddSeparator() {
  mItems.push_back({});
}

void OS_Menu::CheckItem(int id, bool checked) {
  auto const item = std::ranges::find(mItems, id, &OS_MenuItem::id);
  if (item != mItems.end()) {
    item->isChecked = checked;
  }
}

void OS_Menu::EnableItem(int id, bool enabled) {
  auto const item = std::ranges::find(mItems, id, &OS_MenuItem::id);
  if (item != mItems.end()) {
    item->isEnabled = enabled;
  }
}

int OS_Menu::Popup(PointT<float> globalPoint) {
  if (std::ranges::all_of(mItems, [](OS_MenuItem const& item) { return item.id == 0; })) {
    return 0;
  }
  platform::ModalRequest request;
  request.kind = platform::ModalKind::kMenu;
  request.menuItems = &mItems;
  request.position = globalPoint;
  if (auto const answer = platform::AskModalResponder(request)) {
    // Nobody can choose what isn't there or is disabled.
    auto const item = std::ranges::find(mItems, *answer, &OS_MenuItem::id);
    return item != mItems.end() && item->isEnabled ? *answer : 0;
  }
  auto* const application = platform::Application::Get();
  platform::MenuPlace const place{
      .point = globalPoint, .initialID = mInitialItem, .minimumWidth = mMinimumWidth};
  return application != nullptr ? application->GetMenus().Popup(mItems, place) : 0;
}

moxcore::utility::IntrusivePtr<OS_Menu> CreateOSMenu() {
  return moxcore::utility::MakeIntrusive<OS_Menu>();
}

}  // namespace moxui::ui
