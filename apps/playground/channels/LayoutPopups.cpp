#include "channels/LayoutPopups.h"

#include <string>

namespace playground {

LayoutPopups::LayoutPopups(ChannelDesk& desk, bool allowsCustomLayouts)
    : ChannelsPopupHandlerBase(allowsCustomLayouts), mDesk(desk) {}

LayoutPopups::~LayoutPopups() = default;

void LayoutPopups::Add(LayoutUse use, Popup const& popup) {
  moxcore::Utf16String const key(1, static_cast<char16_t>(use));
  mIsAdding = true;
  AddPopup(popup, key, {}, {});
  mIsAdding = false;
}

LayoutUse LayoutPopups::UseOf(PopupData const& data) {
  return static_cast<LayoutUse>(data.preferenceKeys[0].front());
}

// NOLINTNEXTLINE(performance-unnecessary-value-param)
void LayoutPopups::SaveLayoutsToPreferences(PopupData data, moxmediatypes::AudioChannelLayout layout,
                                            moxcore::Utf16String) {
  mDesk.SetLayout(UseOf(data), std::move(layout));
  mEdit = Edit::kConfirmed;
}

moxmediatypes::AudioChannelLayout LayoutPopups::GetDefaultChannelLayout(PopupData& data) {
  // A popup is filled when it is added and after each edit, confirmed or not.
  if (!mIsAdding && mEdit == Edit::kNone) {
    mEdit = Edit::kCancelled;
  }
  return mDesk.LayoutFor(UseOf(data));
}

}  // namespace playground
