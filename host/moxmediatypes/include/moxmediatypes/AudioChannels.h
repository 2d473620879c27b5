#pragma once

#include <moxcore/string/String.h>

#include <compare>
#include <cstdint>
#include <set>
#include <vector>

namespace moxmediatypes {

// What a channel of sound is for: the place of its loudspeaker, or its component of a sound field. Numbers
// are those of preset files and never change; others than these may be held, and are shown by their number.
//
// Loudspeakers are named as in ITU-R BS.2051 and ISO/IEC 23091-3; directions in degrees, azimuth to the left
// and elevation upwards, are the nominal ones.
enum class AudioChannelLabel : std::uint32_t {
  kUnnamed = 0,

  kLeft = 100,           // L    30
  kRight = 101,          // R   -30
  kCenter = 102,         // C     0
  kLowFrequency = 103,   // LFE
  kLeftSurround = 104,   // Ls  110
  kRightSurround = 105,  // Rs -110

  kCenterSurround = 106,     // Cs   180
  kLeftSideSurround = 107,   // Lss   90
  kRightSideSurround = 108,  // Rss  -90
  kLeftRearSurround = 109,   // Lrs  135
  kRightRearSurround = 110,  // Rrs -135
  kLeftCenter = 111,         // Lc    15
  kRightCenter = 112,        // Rc   -15
  kLowFrequency2 = 113,      // LFE2
  kLeftWide = 114,           // Lw    60
  kRightWide = 115,          // Rw   -60

  kLeftTopFront = 120,    // Ltf   45, 35
  kCenterTopFront = 121,  // Ctf    0, 35
  kRightTopFront = 122,   // Rtf  -45, 35
  kLeftTopMiddle = 123,   // Ltm   90, 35
  kTopCenter = 124,       // Tc     0, 90
  kRightTopMiddle = 125,  // Rtm  -90, 35
  kLeftTopRear = 126,     // Ltr  135, 35
  kCenterTopRear = 127,   // Ctr  180, 35
  kRightTopRear = 128,    // Rtr -135, 35

  kLeftBottomFront = 130,    // Lbf   45, -15
  kCenterBottomFront = 131,  // Cbf    0, -15
  kRightBottomFront = 132,   // Rbf  -45, -15

  kLeftTotal = 140,   // Lt, of a matrix encoding
  kRightTotal = 141,  // Rt

  // Components of a sound field in the order of the Ambisonic Channel Number, up to the third order: W, Y, Z,
  // X, V, T, R, S, U, Q, O, M, K, L, N, P.
  kAmbisonic0 = 200,
  kAmbisonic15 = 215,
};

// A channel of a layout; 32 bits, compared and ordered by the number of its label.
class AudioChannelDescription {
 public:
  constexpr AudioChannelDescription() noexcept = default;
  constexpr AudioChannelDescription(AudioChannelLabel label) noexcept : mLabel(label) {}
  explicit constexpr AudioChannelDescription(std::uint32_t number) noexcept
      : mLabel(static_cast<AudioChannelLabel>(number)) {}

  constexpr AudioChannelLabel GetLabel() const noexcept { return mLabel; }
  constexpr std::uint32_t GetNumber() const noexcept { return static_cast<std::uint32_t>(mLabel); }

  friend constexpr bool operator==(AudioChannelDescription, AudioChannelDescription) noexcept = default;
  friend constexpr std::strong_ordering operator<=>(AudioChannelDescription a,
                                                    AudioChannelDescription b) noexcept {
    return a.GetNumber() <=> b.GetNumber();
  }

 private:
  AudioChannelLabel mLabel = AudioChannelLabel::kUnnamed;
};
static_assert(sizeof(AudioChannelDescription) == 4);

// The channels in their order.
using AudioChannelLayout = std::vector<AudioChannelDescription>;

// One channel without a name.
AudioChannelLayout CreateMonoChannelLayout();
// Left, right.
AudioChannelLayout CreateStereoChannelLayout();

// Every label of AudioChannelLabel, the one without a name first.
const std::set<AudioChannelDescription>& GetSupportedAudioChannelDescriptions();

// The label in words of the user's language, or its short form, which is the same in all languages as far as
// engineers write it so. Never empty. May be called on any thread.
moxcore::Utf8String AudioChannelLabelDescription(AudioChannelLabel label, bool shortForm);

}  // namespace moxmediatypes
