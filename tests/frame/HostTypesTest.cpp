#include <moxmediaui/HostTypes.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace {

// Clients write the host's values by the library's names, and hand them to either.
TEST(HostTypes, AreTheHostsOwn) {
  static_assert(std::is_same_v<moxmediaui::RectT<float>, moxui::RectT<float>>);
  static_assert(std::is_same_v<moxmediaui::PointT<int>, moxui::PointT<int>>);
  static_assert(std::is_same_v<moxmediaui::ExtentT<float>, moxui::ExtentT<float>>);
  static_assert(std::is_same_v<moxmediaui::PaddingT<float>, moxui::PaddingT<float>>);
  static_assert(std::is_same_v<moxmediaui::ScaleMatrixT<float>, moxui::ScaleMatrixT<float>>);
  static_assert(std::is_same_v<moxmediaui::ColorRGBA, moxui::ColorRGBA>);
  static_assert(std::is_same_v<moxmediaui::ColorRGBAOptional, moxui::ColorRGBAOptional>);
  static_assert(std::is_same_v<moxmediaui::Flags<unsigned>, moxui::Flags<unsigned>>);
  static_assert(std::is_same_v<moxmediaui::Guid, moxcore::Guid>);
  static_assert(std::is_same_v<moxmediaui::TickTime, moxmediatypes::TickTime>);
  static_assert(std::is_same_v<moxmediaui::FrameRate, moxmediatypes::FrameRate>);
  static_assert(std::is_same_v<moxmediaui::TimeDisplay, moxmediatypes::TimeDisplay>);
  static_assert(std::is_same_v<moxmediaui::ImmutableString, moxcore::ImmutableString>);
  static_assert(std::is_same_v<moxmediaui::Utf16String, moxcore::Utf16String>);
  static_assert(std::is_same_v<moxmediaui::IntrusivePtr<int>, moxcore::utility::IntrusivePtr<int>>);
  static_assert(std::is_same_v<moxmediaui::ImageP, moxui::scriber::ImageP>);
  EXPECT_EQ(moxmediaui::TickTime(1, moxmediaui::FrameRate::k25).GetTicks(), 10160640000);
}

}  // namespace
