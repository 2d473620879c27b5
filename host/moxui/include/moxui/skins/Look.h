#pragma once

namespace moxui::skins {

/// The generation of the interface that runs: false is the classic look, true the newer one (V7). It is a
/// property of the process, read at construction, layout and paint. The process starts in V7.
bool IsRunningV7OrBeyond();

/// Switches the look. When it changes, the theme-changed functions are called after the new look answers.
void SetRunningV7OrBeyond(bool runs);

/// How long the pointer rests before a tool tip shows, in milliseconds: 200 in V7, 400 in the classic look.
int GetToolTipDelay();

}  // namespace moxui::skins
