#pragma once

#include <moxmediatypes/AudioChannels.h>

#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace playground {

// What the popups of the channels page choose a layout for.
enum class LayoutUse { kSound, kOther, kBuiltIn, kWave };
inline constexpr std::size_t kLayoutUseCount = 4;

// What the channels page knows apart from its views, which come and go with language and look.
class ChannelDesk {
 public:
  using Layout = moxmediatypes::AudioChannelLayout;
  using Layouts = std::array<Layout, kLayoutUseCount>;

  // Stereo for all.
  ChannelDesk() { mLayouts.fill(moxmediatypes::CreateStereoChannelLayout()); }

  Layout const& LayoutFor(LayoutUse use) const { return mLayouts[static_cast<std::size_t>(use)]; }
  void SetLayout(LayoutUse use, Layout layout) {
    mLayouts[static_cast<std::size_t>(use)] = std::move(layout);
  }

  // What is worth remembering from one time to the next: what was chosen, for each use; for the sound, what
  // was chosen for the program's own, since it alone is there each time. Empty where nothing was chosen.
  Layouts Remembered() const;
  // Empty layouts change nothing. That of the program's own sound is the session's to take.
  void Recall(Layouts const& layouts);
  Layout const& LayoutForOwnSound() const { return mLayoutForOwnSound; }
  void SetLayoutForOwnSound(Layout layout) { mLayoutForOwnSound = std::move(layout); }

  // The document, by its number, that the layout of the sound was chosen for in vain; none when it names its
  // channels.
  std::optional<std::size_t> RefusedBy() const { return mRefusedBy; }
  void SetRefusedBy(std::optional<std::size_t> document) { mRefusedBy = document; }

 private:
  Layouts mLayouts;
  Layout mLayoutForOwnSound;
  std::optional<std::size_t> mRefusedBy;
};

inline ChannelDesk::Layouts ChannelDesk::Remembered() const {
  Layouts layouts = mLayouts;
  layouts[static_cast<std::size_t>(LayoutUse::kSound)] = mLayoutForOwnSound;
  return layouts;
}

inline void ChannelDesk::Recall(Layouts const& layouts) {
  for (std::size_t use = 0; use < layouts.size(); ++use) {
    if (!layouts[use].empty()) {
      (static_cast<LayoutUse>(use) == LayoutUse::kSound ? mLayoutForOwnSound : mLayouts[use]) = layouts[use];
    }
  }
}

}  // namespace playground
