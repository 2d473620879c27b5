#pragma once

#include "channels/LayoutPopups.h"

#include <moxui/controls/UI_StaticText.h>
#include <moxui/ui/UI_SubView.h>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>

namespace playground {

// Popups of channel layouts in rows, one for each use, with the channels of what they show beside them: two
// that list all presets and open the editor, one of the layouts that came with the program, and one whose
// editor offers only the labels that a WAV file has places for.
class LayoutTable : public moxui::ui::UI_SubView {
 public:
  // Hears that the user has dealt with a popup; the desk has what was chosen.
  using ChangeFunction = std::function<void(LayoutUse use, LayoutPopups::Edit edit)>;

  // Reads the presets. The desk outlives it.
  LayoutTable(ChannelDesk& desk, ChangeFunction change);
  ~LayoutTable() override;

  static float Height();
  moxui::controls::UI_Popup& Popup(LayoutUse use) const { return *RowOf(use).popup; }
  // What stands beside a popup.
  moxcore::Utf16String const& Names(LayoutUse use) const { return RowOf(use).names->GetValue(); }
  std::size_t CountPresets() const { return mAll->CountPresets(); }
  std::vector<moxappsupport::presets::SkippedFile> const& SkippedFiles() const {
    return mAll->SkippedFiles();
  }

  // Shows what the desk has.
  void Refresh();

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_SizeChanged(moxui::RectT<float> const& rect) override;

 private:
  struct Row {
    LayoutPopups* handler = nullptr;
    moxcore::Utf16String label;
    LayoutPopups::Popup popup;
    moxcore::utility::IntrusivePtr<moxui::controls::UI_StaticText> names;
  };

  Row const& RowOf(LayoutUse use) const { return mRows[static_cast<std::size_t>(use)]; }
  void AddRow(LayoutUse use, LayoutPopups& handler, std::string_view label, std::string_view tip);
  void Chosen(LayoutUse use);
  void Show(LayoutUse use);
  moxui::RectT<float> LabelRect(std::size_t row) const;

  ChannelDesk& mDesk;
  ChangeFunction mChange;
  std::unique_ptr<LayoutPopups> mAll;
  std::unique_ptr<LayoutPopups> mBuiltIn;
  std::unique_ptr<LayoutPopups> mWave;
  std::array<Row, kLayoutUseCount> mRows;
};

}  // namespace playground
