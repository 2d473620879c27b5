#pragma once

#include "channels/ChannelDesk.h"

#include <moxmediaui/ChannelsPopupHandlerBase.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace playground {

// Popups of channel layouts that show what the desk remembers for each of them.
class LayoutPopups : public moxmediaui::channelconfig::ChannelsPopupHandlerBase {
 public:
  using Popup = moxcore::utility::IntrusivePtr<moxui::controls::UI_Popup>;
  // What the editor of layouts came to.
  enum class Edit { kNone, kConfirmed, kCancelled };

  // The desk outlives it.
  LayoutPopups(ChannelDesk& desk, bool allowsCustomLayouts);
  ~LayoutPopups() override;

  void Add(LayoutUse use, Popup const& popup);
  // What has happened in the editor since this was asked last. It fills all popups anew.
  Edit TakeEdit() { return std::exchange(mEdit, Edit::kNone); }

  std::size_t CountPresets() const { return GetPresetCache()->GetPresets().size(); }
  std::vector<moxappsupport::presets::SkippedFile> const& SkippedFiles() const {
    return GetPresetCache()->GetSkippedFiles();
  }

 protected:
  // By value, as the base has them.
  void SaveLayoutsToPreferences(PopupData data, moxmediatypes::AudioChannelLayout layout,
                                moxcore::Utf16String name) override;
  moxmediatypes::AudioChannelLayout GetDefaultChannelLayout(PopupData& data) override;

 private:
  static LayoutUse UseOf(PopupData const& data);

  ChannelDesk& mDesk;
  Edit mEdit = Edit::kNone;
  bool mIsAdding = false;
};

}  // namespace playground
