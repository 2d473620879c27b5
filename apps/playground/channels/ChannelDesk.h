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

  // Stereo for all.
  ChannelDesk() { mLayouts.fill(moxmediatypes::CreateStereoChannelLayout()); }

  Layout const& LayoutFor(LayoutUse use) const { return mLayouts[static_cast<std::size_t>(use)]; }
  void SetLayout(LayoutUse use, Layout layout) {
    mLayouts[static_cast<std::size_t>(use)] = std::move(layout);
  }

  // The document, by its number, that the layout of the sound was chosen for in vain; none when it names its
  // channels.
  std::optional<std::size_t> RefusedBy() const { return mRefusedBy; }
  void SetRefusedBy(std::optional<std::size_t> document) { mRefusedBy = document; }

 private:
  std::array<Layout, kLayoutUseCount> mLayouts;
  std::optional<std::size_t> mRefusedBy;
};

}  // namespace playground
