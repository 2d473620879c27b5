#include "ControlFixture.h"

#include <moxui/controls/UI_StaticImage.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/scriber/FontInterface.h>
#include <moxui/scriber/SupplierInterface.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/TextTruncation.h>
#include <moxui/skins/Theme.h>
#include <moxui/ui/UI_NodeManager.h>

#include <cmath>

namespace moxui::controls {
namespace {

using moxcore::utility::MakeIntrusive;
using testing::ChangeLog;

class StaticText : public testing::ControlTest<UI_StaticText> {};

TEST_F(StaticText, SetValueAndSetLabelTextSetTheSameText) {
  UI_StaticText& text = Put({10, 10, 120, 16});
  text.SetLabelText("M\xC3\xBCller");
  EXPECT_EQ(text.GetValue(), u"M\u00FCller");
  text.SetValue(u"Gain");
  EXPECT_EQ(text.GetValue(), u"Gain");
}

TEST_F(StaticText, WidthIsThatOfTheWholeTextWithItsFraction) {
  UI_StaticText& text = Put({10, 10, 5, 16});
  EXPECT_FLOAT_EQ(text.GetTextWidth(), 0.0f);
  text.SetValue(u"Temperature");
  float const width = text.GetTextWidth();
  EXPECT_GT(width, 50.0f);
  EXPECT_NE(width, std::round(width));
  text.SetCustomFontSize(24.0f);
  EXPECT_NEAR(text.GetTextWidth(), 2.0f * width, 0.1f * width);
}

TEST_F(StaticText, RecommendsTheTextWithoutMargins) {
  UI_StaticText& text = Put({10, 10, 5, 16});
  text.SetValue(u"Temperature");
  ExtentT<float> const size = text.UI_GetRecommendedSizeFromDefaultSupplier();
  EXPECT_FLOAT_EQ(size.width, text.GetTextWidth());
  EXPECT_GE(size.height, 12.0f);
  EXPECT_LE(size.height, 20.0f);
}

TEST_F(StaticText, MultipleLinesAreWrappedAndMeasuredSo) {
  UI_StaticText& text = Put({10, 10, 80, 100});
  text.SetValue(u"one two three four five six");
  float const oneLine = text.UI_GetRecommendedSizeFromDefaultSupplier().height;
  text.SetMultiLine(true);
  ExtentT<float> const wrapped = text.UI_GetRecommendedSizeFromDefaultSupplier();
  EXPECT_GE(wrapped.height, 2.0f * oneLine);
  EXPECT_LE(wrapped.width, 80.0f);
  text.SetValue(u"a\nb\nc");
  EXPECT_FLOAT_EQ(text.UI_GetRecommendedSizeFromDefaultSupplier().height, 3.0f * oneLine);
}

TEST_F(StaticText, CustomColoursInvalidateOnAChange) {
  UI_StaticText& text = Put({10, 10, 120, 16}, u"Gain");
  platform::Pixels const themed = mStage.TakePicture();
  mStage.PaintFrame();
  text.SetCustomTextColor({1, 0, 0, 1});
  EXPECT_TRUE(mStage.GetTree().NeedsFrame());
  EXPECT_NE(mStage.TakePicture(), themed);
  mStage.PaintFrame();
  text.SetCustomTextColor({1, 0, 0, 1});
  EXPECT_FALSE(mStage.GetTree().NeedsFrame());
  text.ClearCustomTextColor();
  EXPECT_TRUE(mStage.GetTree().NeedsFrame());
  EXPECT_EQ(mStage.TakePicture(), themed);
}

TEST_F(StaticText, SettersAskForAFrameOnAChangeOnly) {
  UI_StaticText& text = Put({10, 10, 120, 16}, u"Gain");
  mStage.PaintFrame();
  text.SetValue(u"Gain");
  text.SetAlignment(ControlAlignment::kLeft);
  EXPECT_FALSE(mStage.GetTree().NeedsFrame());
  text.SetAlignment(ControlAlignment::kCenter);
  EXPECT_TRUE(mStage.GetTree().NeedsFrame());
}

TEST_F(StaticText, SetValueMakesKnown) {
  UI_StaticText& text = Put({10, 10, 120, 16}, u"Gain");
  text.SetValueUnknown();
  text.SetValue(u"Gain");
  EXPECT_FALSE(text.IsValueUnknown());
}

TEST_F(StaticText, FollowsTheThemeAtRunTime) {
  Put({10, 10, 120, 16}, u"Gain");
  platform::Pixels const dark = mStage.TakePicture();
  testing::RunningLook const light(true, ui::ThemeID::kLight);
  EXPECT_NE(mStage.TakePicture(), dark);
}

TEST_F(StaticText, TellsAssistiveSoftwareItsText) {
  UI_StaticText& text = Put({10, 10, 120, 16}, u"Gain");
  EXPECT_EQ(text.UI_GetAccessibleRole(), ui::AccessibleRole::kStaticText);
  EXPECT_EQ(text.UI_GetAccessibleName(), "Gain");
}

class Truncation : public ::testing::Test {
 protected:
  // Each UTF-16 unit is ten wide.
  class TenWideFont : public scriber::FontInterface {
   public:
    float GetAscent() const override { return 8; }
    float GetDescent() const override { return 2; }
    float GetWidth(std::u16string_view text) const override {
      return 10.0f * static_cast<float>(text.size());
    }
    float GetSize() const override { return 10; }
  };
  moxcore::Utf16String Truncated(std::u16string_view text, float width, TextTruncation truncation) const {
    return skins::TruncateText(text, width, *mFont, truncation);
  }
  moxcore::utility::IntrusivePtr<TenWideFont> mFont = MakeIntrusive<TenWideFont>();
};

TEST_F(Truncation, LeavesWhatFits) {
  EXPECT_EQ(Truncated(u"abcdef", 60, TextTruncation::kEnd), u"abcdef");
  EXPECT_EQ(Truncated(u"abcdef", 10, TextTruncation::kNone), u"abcdef");
}

TEST_F(Truncation, TakesStartMiddleOrEnd) {
  EXPECT_EQ(Truncated(u"abcdef", 40, TextTruncation::kStart), u"\u2026def");
  EXPECT_EQ(Truncated(u"abcdef", 40, TextTruncation::kEnd), u"abc\u2026");
  EXPECT_EQ(Truncated(u"abcdef", 40, TextTruncation::kMiddle), u"ab\u2026f");
}

TEST_F(Truncation, KeepsTheMarkOfAModifiedPreset) {
  EXPECT_EQ(Truncated(u"Bright sky *", 70, TextTruncation::kMiddle), u"Bri\u2026y *");
}

TEST_F(Truncation, LeavesNoSpaceBeforeTheEllipsis) {
  EXPECT_EQ(Truncated(u"ab  cdef", 50, TextTruncation::kEnd), u"ab\u2026");
  EXPECT_EQ(Truncated(u"ab  cdef", 70, TextTruncation::kMiddle), u"ab\u2026def");
  EXPECT_EQ(Truncated(u"  abcdef", 30, TextTruncation::kEnd), u"\u2026");
}

TEST_F(Truncation, GivesNothingWhereNotEvenTheEllipsisFits) {
  EXPECT_EQ(Truncated(u"abcdef", 10, TextTruncation::kEnd), u"\u2026");
  EXPECT_EQ(Truncated(u"abcdef", 9, TextTruncation::kEnd), u"");
}

TEST_F(Truncation, KeepsPairsAndMarksWithTheirCharacters) {
  EXPECT_EQ(Truncated(u"a\U0001F3B5bc", 30, TextTruncation::kEnd), u"a\u2026");
  EXPECT_EQ(Truncated(u"xe\u0301yz", 30, TextTruncation::kEnd), u"x\u2026");
  EXPECT_EQ(Truncated(u"ab\U0001F3B5", 20, TextTruncation::kStart), u"\u2026");
}

class StaticImage : public testing::ControlTest<UI_StaticImage> {
 protected:
  ImageSupplyFunction Supply() {
    return std::make_shared<moxcore::messaging::ConstMessageFunction>(
        [this](moxcore::messaging::ConstMessage* message) {
          auto& question = dynamic_cast<UI_PictureSupplyMessage&>(*message);
          ++mQuestions;
          mLastIndex = question.GetImageIndex();
          mLastState = question.GetStateFlags();
          auto const surface = question.GetDrawSupplier()->NewOffscreenSurface(8, 6, 1.0f);
          surface->FillRect({0, 0, 8, 6}, {1, 0, 0, 1});
          question.SetImage(surface->GetImage());
        });
  }
  int mQuestions = 0;
  std::size_t mLastIndex = 99;
  Flags<unsigned int> mLastState;
};

TEST_F(StaticImage, ShowsNothingWithoutASupplier) {
  UI_StaticImage& image = Put({10, 10, 20, 20});
  EXPECT_FALSE(image.GetImage());
  EXPECT_FALSE(image.HasImageSupplyFunction());
  EXPECT_EQ(image.GetImageSupplyFunction(), nullptr);
  EXPECT_EQ(image.UI_GetRecommendedSizeFromDefaultSupplier(), ExtentT<float>());
}

TEST_F(StaticImage, AsksForItsPictureWithItsState) {
  UI_StaticImage& image = Put({10, 10, 20, 20});
  image.SetImageSupplyFunction(Supply());
  image.SetDisabled(true);
  EXPECT_TRUE(image.GetImage());
  EXPECT_TRUE(mLastState.Has(ControlState::kDisabled));
  EXPECT_EQ(image.UI_GetRecommendedSizeFromDefaultSupplier(), ExtentT<float>(8, 6));
}

// Whoever answers for pictures, as panels do: by a member of its own.
class Answerer : public moxcore::utility::RefCountedObjectWithWeakPtr {
 public:
  void Supply(UI_PictureSupplyMessage* message) {
    message->SetImage(message->GetDrawSupplier()->NewOffscreenSurface(5, 4, 1.0f)->GetImage());
  }
};

TEST_F(StaticImage, TakesABoundMemberThatMayOutliveItsOwner) {
  UI_StaticImage& image = Put({10, 10, 20, 20});
  auto answerer = moxcore::utility::MakeIntrusive<Answerer>();
  image.SetImageSupplyFunction(moxcore::messaging::BindConstMessageFunction(answerer, &Answerer::Supply));
  ASSERT_TRUE(image.GetImage());
  EXPECT_EQ(image.GetImage()->GetWidth(), 5.0f);
  answerer.Reset();
  EXPECT_FALSE(image.GetImage());
}

TEST_F(StaticImage, ASupplierItHoldsAlreadyChangesNothing) {
  UI_StaticImage& image = Put({10, 10, 20, 20});
  auto const supply = Supply();
  image.SetImageSupplyFunction(supply);
  auto const handler = image.GetImageHandler();
  mStage.PaintFrame();
  image.SetImageSupplyFunction(supply);
  EXPECT_EQ(image.GetImageHandler(), handler);
  EXPECT_FALSE(mStage.GetTree().NeedsFrame());
  image.SetImageSupplyFunction(Supply());
  EXPECT_NE(image.GetImageHandler(), handler);
  EXPECT_TRUE(mStage.GetTree().NeedsFrame());
}

TEST_F(StaticImage, ANullSupplierCountsAsNone) {
  UI_StaticImage& image = Put({10, 10, 20, 20});
  mStage.PaintFrame();
  image.SetImageSupplyFunction(nullptr);
  EXPECT_EQ(image.GetImageHandler(), nullptr);
  EXPECT_FALSE(image.HasImageSupplyFunction());
  EXPECT_FALSE(mStage.GetTree().NeedsFrame());
  image.SetImageSupplyFunction(Supply());
  image.SetImageSupplyFunction(nullptr);
  EXPECT_FALSE(image.HasImageSupplyFunction());
  EXPECT_FALSE(image.GetImage());
}

TEST_F(StaticImage, SetImageHandlerDoesNotInvalidate) {
  UI_StaticImage& image = Put({10, 10, 20, 20});
  mStage.PaintFrame();
  image.SetImageHandler(std::make_shared<DefaultImageHandler>(Supply()));
  EXPECT_FALSE(mStage.GetTree().NeedsFrame());
  EXPECT_TRUE(image.HasImageSupplyFunction());
}

TEST_F(StaticImage, PassesTheIndexToTheHandlerAndInvalidates) {
  UI_StaticImage& image = Put({10, 10, 20, 20});
  image.SetImageSupplyFunction(Supply());
  mStage.PaintFrame();
  image.SetImageIndex(3);
  EXPECT_TRUE(mStage.GetTree().NeedsFrame());
  image.GetImage();
  EXPECT_EQ(mLastIndex, 3u);
}

TEST_F(StaticImage, AHandlerOfAnotherKindHasNoFunction) {
  class Other : public UI_ImageHandlerInterface {
    void SupplyImage(UI_PictureSupplyMessage&) override {}
    void SetImageIndex(std::size_t) override {}
  };
  UI_StaticImage& image = Put({10, 10, 20, 20});
  image.SetImageHandler(std::make_shared<Other>());
  EXPECT_FALSE(image.HasImageSupplyFunction());
  EXPECT_EQ(image.GetImageSupplyFunction(), nullptr);
  EXPECT_FALSE(image.GetImage());
}

}  // namespace
}  // namespace moxui::controls
