#pragma once

#include <moxcore/string/String.h>
#include <moxui/controls/ControlTypes.h>
#include <moxui/skins/ThemeFont.h>

#include <optional>

namespace moxui::ui {
class ThemeClient;
}

namespace moxui::controls {

/// A text of a control and how it is set. A plain value.
struct ControlText {
  moxcore::Utf16String text;
  ui::FontIndex fontIndex = ui::FontIndex::kText;
  float fontSize = 0.0f;  ///< 0: the theme's size for the index, or the custom one in force
  bool bold = false;
  std::optional<ControlAlignment> alignment{};  ///< empty: where the language's lines begin
  float indent = 0.0f;                          ///< from the edge that the text is aligned to
  TextTruncation truncation = TextTruncation::kEnd;

  friend bool operator==(ControlText const&, ControlText const&) = default;
};

/// The alignment that was set, else the one of the layout's direction.
ControlAlignment GetAlignment(ControlText const& text);

/// The font of a text below a client; null when there is no font at all.
scriber::FontP GetControlFont(ControlText const& text, ui::ThemeClient const& client,
                              scriber::SupplierInterface const* supplier);

}  // namespace moxui::controls
