#include <moxui/resources/IconTone.h>
#include <moxui/skins/ControlState.h>
#include <moxui/skins/Theme.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using moxcore::utility::ResourceBytes;
using moxui::ColorRGBA;

std::string Toned(std::string_view document, ColorRGBA const& tone) {
  ResourceBytes const bytes(document.begin(), document.end());
  ResourceBytes const toned = moxui::utility::ApplyIconTone(bytes, tone);
  return std::string(toned.begin(), toned.end());
}

constexpr ColorRGBA kTone{1.0f, 0.5f, 0.0f, 0.25f};

TEST(IconTone, ReplacesWhiteAndItsOpacity) {
  EXPECT_EQ(Toned(R"(<g fill="#fff" opacity="0.65"/>)", kTone), R"(<g fill="#ff8000" opacity="0.250"/>)");
  EXPECT_EQ(Toned(R"(<g stroke="white" stroke-opacity=".65"/>)", kTone),
            R"(<g stroke="#ff8000" stroke-opacity="0.250"/>)");
  EXPECT_EQ(Toned(R"(<g style="fill:#FFFFFF;opacity:0.65"/>)", kTone),
            R"(<g style="fill:#ff8000;opacity:0.250"/>)");
}

TEST(IconTone, ReplacesTheCurrentColour) {
  EXPECT_EQ(Toned(R"(<g fill="currentColor"/>)", {0, 0, 1, 1}), R"(<g fill="#0000ff"/>)");
}

TEST(IconTone, LeavesOtherColoursAlone) {
  constexpr std::string_view kDocument = R"(<g fill="#fff000" stroke="none" opacity="0.5" d="M0.65 1"/>)";
  EXPECT_EQ(Toned(kDocument, kTone), kDocument);
  EXPECT_EQ(Toned("", kTone), "");
}

TEST(IconTone, FollowsStateAndTheme) {
  using namespace moxui::skins;
  auto const rest = moxui::utility::GetIconTone(nullptr, {});
  auto const active = moxui::utility::GetIconTone(nullptr, ControlState::kRollover);
  auto const disabled =
      moxui::utility::GetIconTone(nullptr, ControlState::kDisabled | ControlState::kRollover);
  EXPECT_NE(rest, disabled);
  EXPECT_NE(active, disabled);
  EXPECT_EQ(active, moxui::utility::GetIconTone(nullptr, ControlState::kPressed));
  moxui::ui::SetCurrentTheme(moxui::ui::ThemeID::kLight);
  EXPECT_NE(moxui::utility::GetIconTone(nullptr, {}), rest);
  moxui::ui::SetCurrentTheme(moxui::ui::ThemeID::kDark);
}

}  // namespace
