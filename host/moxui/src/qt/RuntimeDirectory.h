#pragma once

namespace moxui::qt {

/// Sees to it that the environment names a directory for what a program keeps while it runs, as Qt wants
/// before its application is made and complains where a bare environment has none: private to the user, under
/// the one for temporary files. One that is named already stays.
void ProvideRuntimeDirectory();

}  // namespace moxui::qt
