#include <moxui/skins/ThemeChanged.h>
#include <moxui/ui/UI_NodeManager.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace moxui::ui {
namespace {

using Functions = std::vector<std::shared_ptr<ThemeChangedFunction>>;

Functions& Installed() {
  static Functions functions;
  return functions;
}

bool IsInstalled(std::shared_ptr<ThemeChangedFunction> const& function) {
  return std::find(Installed().begin(), Installed().end(), function) != Installed().end();
}

}  // namespace

void InstallThemeChangedFunction(std::shared_ptr<ThemeChangedFunction> function) {
  if (function && *function && !IsInstalled(function)) {
    Installed().push_back(std::move(function));
  }
}

void RemoveThemeChangedFunction(std::shared_ptr<ThemeChangedFunction> const& function) {
  std::erase(Installed(), function);
}

void NotifyThemeChanged() {
  // A copy, since the functions may change the list; it keeps them alive while they run.
  Functions const functions = Installed();
  for (auto const& function : functions) {
    if (IsInstalled(function)) {
      (*function)();
    }
  }
  if (auto* const manager = UI_NodeManager::Get(false)) {
    manager->SkinSetUpdated();
  }
}

}  // namespace moxui::ui
