#pragma once

#include "audio/ChannelStrips.h"
#include "shell/ItemControl.h"

#include <cstddef>
#include <optional>
#include <string>

namespace playground {

class AudioSession;

// The names of the channels beside their strips; a click switches a channel off and on again, the right
// button opens a menu of colours for it. By keys: arrows go from channel to channel, space switches the one
// that has the ring, the menu key (or return) opens its menu.
class ChannelGutter : public ItemControl {
 public:
  explicit ChannelGutter(AudioSession& session) : mSession(session) {}

  // The strip of a channel in own coordinates; empty when there is no room for it.
  moxui::RectT<float> StripRect(std::size_t channel) const;
  // The channel that the keys work on.
  std::size_t GetValue() const { return mValue; }
  // How wide it is to be beside a waveform with so much room for both: enough for the names of a layout in
  // full, where that doesn't take too much of it.
  float WidthFor(float room) const;
  // What stands at a channel: its name, or the short form in a narrow gutter.
  std::string LabelOf(std::size_t channel) const;
  // The session has changed: other channels, or other places for them.
  void SessionChanged();

  std::size_t ItemCount() const override;
  moxui::RectT<float> ItemRect(std::size_t channel) const override { return StripRect(channel); }
  moxcore::Utf16String ItemName(std::size_t channel) const override;
  moxcore::Utf16String ItemValue(std::size_t channel) const override;

  void UI_Draw(moxui::scriber::Scriber* scriber) const override;
  void UI_ScaleChanged(float scale) override;
  bool UI_DoMouseEvent(moxui::ui::UI_Node* node, moxui::ui::MouseEvent const& event) override;
  bool UI_DoKeyboardEvent(moxui::ui::UI_Node* node, moxui::ui::KeyboardEvent const& event) override;
  moxcore::Utf8String UI_GetAccessibleName() const override;
  moxcore::Utf8String UI_GetAccessibleValue() const override;

 private:
  void ItemPressed(std::size_t channel) override;
  void HoverChanged() override;
  std::optional<ChannelStrips> Strips() const;
  void DrawLevels(moxui::scriber::Scriber* scriber, moxui::RectT<float> const& strip) const;
  void GoTo(std::size_t channel);
  void OpenMenu(std::size_t channel);
  void MeasureNames();

  AudioSession& mSession;
  std::size_t mValue = 0;
  // For names in full and in short; the same without a layout.
  float mFullWidth = 0.0f;
  float mBriefWidth = 0.0f;
};

}  // namespace playground
