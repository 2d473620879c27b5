#pragma once

#include <functional>
#include <memory>

namespace moxui::ui {

using ThemeChangedFunction = std::function<void()>;

/// Has `function` called after each change of theme or look, in order of installation. It is held until
/// removed. Functions may install and remove any function while being called: a removed one isn't called any
/// more, a new one only from the next change on. Null and a function already installed change nothing.
void InstallThemeChangedFunction(std::shared_ptr<ThemeChangedFunction> function);
void RemoveThemeChangedFunction(std::shared_ptr<ThemeChangedFunction> const& function);

/// Calls the installed functions, then has every node of every tree take up its skin and be painted anew. For
/// those who change what a theme answers.
void NotifyThemeChanged();

}  // namespace moxui::ui
