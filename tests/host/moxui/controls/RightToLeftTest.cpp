// What stock controls look like and how they are worked where the interface is laid out from right to left.
#include "ControlFaces.h"
#include "ControlFixture.h"

#include <moxui/controls/UI_Checkbox.h>
#include <moxui/controls/UI_DisclosureTriangleButton.h>
#include <moxui/controls/UI_Popup.h>
#include <moxui/controls/UI_RadioButton.h>
#include <moxui/controls/UI_ScrollView.h>
#include <moxui/controls/UI_Slider.h>
#include <moxui/controls/UI_StaticText.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/testing/ComparePicture.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace moxui::controls {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::RecordedCall;
using ui::KeyboardCode;

/// The direction of the layout while it lives.
class RunningDirection {
 public:
  explicit RunningDirection(bool rightToLeft) : mBefore(skins::IsRightToLeft()) {
    skins::SetRightToLeft(rightToLeft);
  }
  ~RunningDirection() { skins::SetRightToLeft(mBefore); }
  RunningDirection(RunningDirection const&) = delete;
  RunningDirection& operator=(RunningDirection const&) = delete;

 private:
  bool mBefore;
};

class RightToLeft : public ::testing::Test {
 protected:
  template <typename Control>
  IntrusivePtr<Control> Put(RectT<float> const& rect) {
    auto const control = MakeIntrusive<Control>();
    control->UI_SetLocalRectF(rect);
    mStage.GetRootView().ChildPushBack(control);
    return control;
  }

  /// The one text that a control draws.
  static RecordedCall TextOf(ui::UI_Node const& control) {
    testing::RecordingSupplier supplier;
    scriber::SurfaceP const surface = supplier.NewOffscreenSurface(200, 40, 1.0f);
    scriber::Scriber scriber(&supplier, surface.Get());
    control.UI_Draw(&scriber);
    auto const texts = supplier.GetCalls("DrawText");
    EXPECT_EQ(texts.size(), 1u);
    return texts.empty() ? RecordedCall{} : texts.front();
  }

  testing::RunningLook mLook{true};
  RunningDirection mDirection{true};
  testing::Stage mStage{ExtentT<float>(300, 300)};
};

constexpr int kLeft = static_cast<int>(ControlAlignment::kLeft);
constexpr int kRight = static_cast<int>(ControlAlignment::kRight);

TEST_F(RightToLeft, ACheckBoxHasItsBoxAtTheRightAndItsLabelLeftOfIt) {
  auto const box = Put<UI_Checkbox>({10, 10, 120, 24});
  box->SetTextLabel(u"Snap");
  EXPECT_EQ(box->GetBoxRect(), RectT<float>(104, 4, 16, 16));
  RecordedCall const label = TextOf(*box);
  EXPECT_EQ(label.mode, kRight);
  EXPECT_FLOAT_EQ(label.point.x, 98.0f);
  mStage.Click({120, 22});
  EXPECT_TRUE(box->IsChecked());
  RunningDirection const back(false);
  EXPECT_EQ(box->GetBoxRect(), RectT<float>(0, 4, 16, 16));
  EXPECT_EQ(TextOf(*box).mode, kLeft);
  EXPECT_FLOAT_EQ(TextOf(*box).point.x, 22.0f);
}

TEST_F(RightToLeft, ARadioButtonHasItsMarkAtTheRight) {
  auto const radio = Put<UI_RadioButton>({10, 10, 120, 24});
  radio->SetTextLabel(u"Drop-Frame");
  EXPECT_FLOAT_EQ(radio->GetMarkRect().Right(), 120.0f);
  EXPECT_EQ(TextOf(*radio).mode, kRight);
}

TEST_F(RightToLeft, AMarkWithoutALabelStaysInTheMiddle) {
  auto const box = Put<UI_Checkbox>({10, 10, 26, 26});
  EXPECT_EQ(box->GetBoxRect(), RectT<float>(5, 5, 16, 16));
}

TEST_F(RightToLeft, ArrowsGoTheWayThatRadioButtonsLie) {
  auto const first = Put<UI_RadioButton>({200, 10, 80, 24});
  auto const second = Put<UI_RadioButton>({110, 10, 80, 24});
  auto const third = Put<UI_RadioButton>({20, 10, 80, 24});
  mStage.Click(mStage.CenterOf(*first));
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_TRUE(second->GetValue());
  mStage.Key(KeyboardCode::kDown);
  EXPECT_TRUE(third->GetValue());
  mStage.Key(KeyboardCode::kRight);
  EXPECT_TRUE(second->GetValue());
}

TEST_F(RightToLeft, ADisclosureTriangleExpandsToTheLeft) {
  auto const triangle = Put<UI_DisclosureTriangleButton>({10, 10, 16, 16});
  triangle->UI_GainKeyboardFocus(ui::FocusChangeReason::kByCode);
  mStage.Key(KeyboardCode::kRight);
  EXPECT_FALSE(triangle->GetValue());
  mStage.Key(KeyboardCode::kLeft);
  EXPECT_TRUE(triangle->GetValue());
  mStage.Key(KeyboardCode::kRight);
  EXPECT_FALSE(triangle->GetValue());
}

TEST_F(RightToLeft, APopupHasItsTextAtTheRight) {
  auto const popup = Put<UI_Popup>({10, 10, 130, 24});
  popup->AddItem(u"Stereo");
  popup->SetValue(0);
  RecordedCall const text = TextOf(*popup);
  EXPECT_EQ(text.mode, kRight);
  EXPECT_FLOAT_EQ(text.point.x, 130.0f - skins::SkinSet::Get().GetNumber(skins::SkinNumber::kTextInset));
}

TEST_F(RightToLeft, APopupsMenuOpensAtItsRightCorner) {
  auto const popup = Put<UI_Popup>({10, 10, 130, 24});
  popup->AddItem(u"Stereo");
  testing::ModalAnswers answers;
  mStage.Click(mStage.CenterOf(*popup));
  popup->SetValue(0);
  mStage.Click(mStage.CenterOf(*popup));
  skins::SetRightToLeft(false);
  mStage.Click(mStage.CenterOf(*popup));
  skins::SetRightToLeft(true);
  ASSERT_EQ(answers.GetRecords().size(), 3u);
  EXPECT_EQ(answers.GetRecords()[0].position, PointT<float>(140, 34));
  EXPECT_EQ(answers.GetRecords()[1].position, PointT<float>(140, 10));
  EXPECT_EQ(answers.GetRecords()[2].position, PointT<float>(10, 10));
}

TEST_F(RightToLeft, AHoldIconIsInTheLeftCorner) {
  auto const button = Put<UI_Button>({0, 0, 40, 24});
  button->SetShowHoldIcon(true);
  testing::RecordingSupplier supplier;
  scriber::SurfaceP const surface = supplier.NewOffscreenSurface(200, 40, 1.0f);
  scriber::Scriber scriber(&supplier, surface.Get());
  button->UI_Draw(&scriber);
  EXPECT_EQ(supplier.GetCalls("FillPath").back().path.front().points.front(), PointT<float>(3, 21));
  skins::SetRightToLeft(false);
  button->UI_Draw(&scriber);
  skins::SetRightToLeft(true);
  EXPECT_EQ(supplier.GetCalls("FillPath").back().path.front().points.front(), PointT<float>(37, 21));
}

TEST_F(RightToLeft, ATextBeginsAtTheRightUntilItsAlignmentIsSet) {
  auto const text = Put<UI_StaticText>({10, 10, 120, 16});
  text->SetValue(u"Gain");
  text->SetTextIndent(5.0f);
  EXPECT_EQ(text->GetAlignment(), ControlAlignment::kRight);
  EXPECT_FLOAT_EQ(TextOf(*text).point.x, 115.0f);
  text->SetAlignment(ControlAlignment::kLeft);
  EXPECT_EQ(text->GetAlignment(), ControlAlignment::kLeft);
  EXPECT_FLOAT_EQ(TextOf(*text).point.x, 5.0f);
}

TEST_F(RightToLeft, AnEditedTextEndsAtTheRight) {
  auto const edit = Put<UI_TextEdit>({10, 10, 130, 24});
  edit->SetValue(u"abc", false);
  float const width = edit->GetTextEdit()->UI_GetLocalRectF(false).width;
  EXPECT_NEAR(edit->GetTextEdit()->GetCaretRect().Right(), width, 1.0f);
  edit->SetAlignment(ControlAlignment::kLeft);
  EXPECT_LT(edit->GetTextEdit()->GetCaretRect().Right(), width / 2.0f);
  RunningDirection const back(false);
  auto const other = Put<UI_TextEdit>({10, 50, 130, 24});
  other->SetValue(u"abc", false);
  EXPECT_LT(other->GetTextEdit()->GetCaretRect().Right(), width / 2.0f);
}

TEST_F(RightToLeft, AScrollViewHasItsBarAtTheLeft) {
  auto const content = MakeIntrusive<ui::UI_SubView>();
  content->UI_SetLocalRectF({0, 0, 50, 400});
  auto const scroll = MakeIntrusive<UI_ScrollView>(
      content, ScrollViewStyle::kVerticalBar | ScrollViewStyle::kFitContentWidth);
  mStage.GetRootView().ChildPushBack(scroll);
  scroll->SetViewRect({0, 0, 100, 100});
  float const bar = UI_ScrollBar::GetThickness();
  EXPECT_EQ(scroll->GetScrollBarY()->UI_GetLocalRectF(true), RectT<float>(0, 0, bar, 100));
  EXPECT_EQ(scroll->GetContentView()->UI_ConvertRectTo(scroll.Get(), {0, 0, 10, 10}),
            RectT<float>(bar, 0, 10, 10));
  skins::SetRightToLeft(false);
  EXPECT_EQ(scroll->GetScrollBarY()->UI_GetLocalRectF(true), RectT<float>(100 - bar, 0, bar, 100));
  EXPECT_EQ(scroll->GetContentView()->UI_ConvertRectTo(scroll.Get(), {0, 0, 10, 10}),
            RectT<float>(0, 0, 10, 10));
}

TEST_F(RightToLeft, ASliderStillGrowsToTheRight) {
  auto const slider = Put<UI_Slider>({10, 20, 114, 24});
  mStage.Click({117, 32});
  EXPECT_NEAR(slider->GetValue(), 1.0, 1e-6);
}

TEST_F(RightToLeft, ASwitchRepaintsEverything) {
  mStage.PaintFrame();
  skins::SetRightToLeft(true);
  EXPECT_FALSE(mStage.GetTree().NeedsFrame());
  skins::SetRightToLeft(false);
  EXPECT_TRUE(mStage.GetTree().NeedsFrame());
}

// Pictures

std::vector<std::string> const kMirrored = {
    "picture_text_button", "checkbox_on", "radio_on",        "triangle_collapsed", "popup",
    "static_text",         "text_edit",   "text_edit_lines", "hot_text",           "hot_text_number"};

testing::ControlFace const& FaceOf(std::string const& name) {
  auto const& faces = testing::GetControlFaces();
  return *std::ranges::find(faces, name, &testing::ControlFace::name);
}

class RightToLeftPicture : public ::testing::TestWithParam<std::string> {};

TEST_P(RightToLeftPicture, IsTheOneThatWasAgreedOn) {
  RunningDirection const direction(true);
  for (float const scale : {1.0f, 2.0f}) {
    std::string const golden =
        "controls/" + GetParam() + "_right_to_left" + (scale == 1.0f ? "" : "@2x") + ".png";
    EXPECT_EQ(testing::ComparePicture(
                  testing::TakeFaceInAllLooks(FaceOf(GetParam()), testing::FaceState::kNormal, scale),
                  testing::GoldenPath(golden)),
              "");
  }
}

TEST_P(RightToLeftPicture, IsNotTheOneFromLeftToRight) {
  auto const take = [] {
    return testing::TakeFaceInAllLooks(FaceOf(GetParam()), testing::FaceState::kNormal, 1.0f);
  };
  platform::Pixels const plain = take();
  RunningDirection const direction(true);
  EXPECT_GT(testing::FindDifference(take(), plain).differingPixels, 0);
}

INSTANTIATE_TEST_SUITE_P(Stock, RightToLeftPicture, ::testing::ValuesIn(kMirrored),
                         [](auto const& name) { return name.param; });

}  // namespace
}  // namespace moxui::controls
