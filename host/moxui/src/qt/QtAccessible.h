#pragma once

namespace moxui::qt {

/// Tells assistive software about the nodes of every window: what has a role, its name, value and state.
void InstallAccessibility();

}  // namespace moxui::qt
