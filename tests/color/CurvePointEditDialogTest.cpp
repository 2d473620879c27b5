#include <moxcore/config/Localizer.h>
#include <moxmediaui/CurvePointEditDialog.h>
#include <moxmediaui/Module.h>
#include <moxui/controls/UI_TextButton.h>
#include <moxui/platform/Application.h>
#include <moxui/platform/Window.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/skins/Look.h>
#include <moxui/testing/ComparePicture.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_Container.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace moxmediaui {
namespace {

using moxcore::utility::MakeIntrusive;
using moxui::controls::UI_HotTextNumber;
using moxui::controls::UI_StaticText;
using moxui::controls::UI_TextButton;
using moxui::testing::FailingSupplier;
using moxui::testing::Stage;
using moxui::ui::KeyboardCode;
using moxui::ui::UI_Node;
using Response = CurvePointEditDialog::Response;

UI_Node* FindNode(UI_Node& node, std::string_view id) {
  if (node.UI_GetNodeID() == id) {
    return &node;
  }
  auto* const container = node.UI_GetContainer();
  for (std::size_t i = 0; container != nullptr && i < container->ChildSize(); ++i) {
    if (UI_Node* const found = FindNode(*container->ChildGet(i), id)) {
      return found;
    }
  }
  return nullptr;
}

RectT<float> PlaceOf(UI_Node const& node) {
  return node.UI_GetLocalRectF(moxui::ui::RectSpace::kParent);
}

class CurvePoint : public ::testing::TestWithParam<bool> {
 protected:
  CurvePoint() { moxui::skins::SetRunningV7OrBeyond(IsV7()); }
  ~CurvePoint() override {
    mDialog.Reset();
    if (mIsInitialized) {
      Terminate();
    }
    moxui::skins::SetRunningV7OrBeyond(true);
  }

  static bool IsV7() { return GetParam(); }

  void Open(Utf16String const& caption1, Utf16String const& caption2,
            SupplierInterface const* supplier = moxui::scriber::GetRasterSupplier()) {
    Initialize(supplier);
    mIsInitialized = true;
    mDialog = MakeIntrusive<CurvePointEditDialog>(u"Curve Point", caption1, caption2,
                                                  moxui::dialogs::WindowVariant());
  }

  void Run(std::function<void(Stage&)> drive) {
    mAnswers.ExpectDriven(std::move(drive));
    mDialog->RunModal();
  }

  template <class Control = UI_Node>
  static Control& Find(Stage& stage, std::string_view id) {
    return dynamic_cast<Control&>(*FindNode(*stage.GetRoot(), id));
  }

  moxui::testing::ModalAnswers mAnswers;
  IntrusivePtr<CurvePointEditDialog> mDialog;
  bool mIsInitialized = false;
};

INSTANTIATE_TEST_SUITE_P(Looks, CurvePoint, ::testing::Bool(), [](::testing::TestParamInfo<bool> const& one) {
  return one.param ? "V7" : "Classic";
});

TEST_P(CurvePoint, HasTheLayoutOfItsLooksDocument) {
  Open(u"Input:", u"Output:");
  float const height = IsV7() ? 24 : 19;
  float const second = IsV7() ? 31 : 26;
  float const column = IsV7() ? 55 : 56;
  Run([&](Stage& stage) {
    UI_Node& caption = Find(stage, "StaticText1");
    EXPECT_EQ(PlaceOf(caption), RectT<float>(0, 0, 80, height));
    EXPECT_EQ(PlaceOf(Find(stage, "StaticText2")), RectT<float>(0, second, 80, height));
    EXPECT_EQ(PlaceOf(Find(stage, "Number1")), RectT<float>(0, 0, 76, height));
    EXPECT_EQ(PlaceOf(Find(stage, "Number2")), RectT<float>(0, second, 76, height));
    EXPECT_EQ(PlaceOf(Find(stage, "OKButton")), RectT<float>(0, 0, 80, height));
    EXPECT_EQ(PlaceOf(Find(stage, "CancelButton")), RectT<float>(92, 0, 80, height));
    UI_Node const& captions = *caption.UI_GetParentNode();
    UI_Node const& content = *captions.UI_GetParentNode();
    UI_Node const& root = *content.UI_GetParentNode();
    EXPECT_EQ(PlaceOf(captions), RectT<float>(0, 0, 88, column));
    EXPECT_EQ(PlaceOf(*Find(stage, "Number1").UI_GetParentNode()), RectT<float>(92, 0, 79, column));
    EXPECT_EQ(PlaceOf(*Find(stage, "OKButton").UI_GetParentNode()),
              RectT<float>(0, IsV7() ? 74 : 64, 172, height));
    EXPECT_EQ(PlaceOf(content), RectT<float>(12, 14, 172, IsV7() ? 98 : 83));
    EXPECT_EQ(PlaceOf(root), RectT<float>(0, 0, 197, 118));
    EXPECT_EQ(stage.GetTree().GetSize(), ExtentT<float>(197, 118));
  });
}

TEST_P(CurvePoint, ShowsTitleCaptionsAndButtons) {
  Open(u"Input:", u"Output:");
  Run([&](Stage& stage) {
    EXPECT_EQ(Find<UI_StaticText>(stage, "StaticText1").GetValue(), u"Input:");
    EXPECT_EQ(Find<UI_StaticText>(stage, "StaticText2").GetValue(), u"Output:");
    auto const& ok = Find<UI_TextButton>(stage, "OKButton");
    auto const& cancel = Find<UI_TextButton>(stage, "CancelButton");
    EXPECT_EQ(mDialog->GetHotTextNumber1()->UI_GetAccessibleName(), "Input:");
    EXPECT_EQ(mDialog->GetHotTextNumber2()->UI_GetAccessibleName(), "Output:");
    EXPECT_EQ(ok.GetTextLabel(), u"OK");
    EXPECT_EQ(cancel.GetTextLabel(), u"Cancel");
    EXPECT_TRUE(ok.GetDefaultAppearance());
    EXPECT_FALSE(cancel.GetDefaultAppearance());
    EXPECT_EQ(ok.GetCommitAppearance(), IsV7());
    EXPECT_EQ(cancel.GetCommitAppearance(), IsV7());
  });
  EXPECT_EQ(mAnswers.GetRecords().back().title, u"Curve Point");
}

TEST_P(CurvePoint, ItsNumbersAreSetUpByTheDocument) {
  Open(u"X", u"Y");
  for (auto const& number : {mDialog->GetHotTextNumber1(), mDialog->GetHotTextNumber2()}) {
    EXPECT_EQ(number->GetValue(), 0.0);
    EXPECT_EQ(number->GetMinValue(), -1.79769e+308);
    EXPECT_EQ(number->GetMaxValue(), 1.79769e+308);
    EXPECT_EQ(number->GetDecimalPlaces(), 0);
    EXPECT_EQ(number->GetIncrement(), 1.0);
    EXPECT_EQ(number->GetShiftIncrement(), 10.0);
    EXPECT_EQ(number->GetCmdIncrement(), 0.1);
    EXPECT_EQ(number->GetFormat(), moxui::controls::NumberFormat());
    EXPECT_TRUE(number->UI_WantsKeyboardFocus());
    EXPECT_FALSE(number->GetNumericInput());
  }
}

TEST_P(CurvePoint, NumbersAreTypedAndOkGivesThem) {
  Open(u"X", u"Y");
  mDialog->GetHotTextNumber1()->SetMaxValue(255);
  mDialog->GetHotTextNumber1()->SetValue(64);
  Run([&](Stage& stage) {
    EXPECT_TRUE(mDialog->GetHotTextNumber1()->UI_HasKeyboardFocus());
    stage.Click(stage.CenterOf(*mDialog->GetHotTextNumber1()));
    stage.Type(u"300");
    stage.Click(stage.CenterOf(*mDialog->GetHotTextNumber2()));
    stage.Type(u"12");
    stage.Click(stage.CenterOf(Find(stage, "OKButton")));
  });
  EXPECT_EQ(mDialog->GetResponse(), Response::kOk);
  EXPECT_EQ(mDialog->GetHotTextNumber1()->GetValue(), 255);
  EXPECT_EQ(mDialog->GetHotTextNumber2()->GetValue(), 12);
}

TEST_P(CurvePoint, CancelLeavesTheNumbersAsTheUserTypedThem) {
  Open(u"X", u"Y");
  Run([&](Stage& stage) {
    stage.Click(stage.CenterOf(*mDialog->GetHotTextNumber1()));
    stage.Type(u"7");
    stage.Key(KeyboardCode::kReturn);
    stage.Click(stage.CenterOf(Find(stage, "CancelButton")));
  });
  EXPECT_EQ(mDialog->GetResponse(), Response::kCancel);
  EXPECT_EQ(mDialog->GetHotTextNumber1()->GetValue(), 7);
}

TEST_P(CurvePoint, EnterAndEscapeEndIt) {
  Open(u"X", u"Y");
  Run([](Stage& stage) {
    stage.GetTree().SetFocus(nullptr, moxui::ui::FocusChangeReason::kNone);
    stage.Key(KeyboardCode::kReturn);
  });
  EXPECT_EQ(mDialog->GetResponse(), Response::kOk);
  Run([](Stage& stage) { stage.Key(KeyboardCode::kEscape); });
  EXPECT_EQ(mDialog->GetResponse(), Response::kCancel);
}

TEST_P(CurvePoint, LongCaptionsWidenIt) {
  Open(u"A caption that takes far more room than there is", u"Y");
  Run([&](Stage& stage) {
    float const wider = PlaceOf(Find(stage, "StaticText1")).width - 80;
    EXPECT_GT(wider, 100);
    // The numbers end a pixel before the buttons did, whose distance to the edge is kept.
    float const grown = wider - 1;
    EXPECT_EQ(stage.GetTree().GetSize(), ExtentT<float>(197 + grown, 118));
    UI_Node const& numbers = *Find(stage, "Number1").UI_GetParentNode();
    EXPECT_EQ(PlaceOf(numbers).left, 92 + wider);
    EXPECT_EQ(PlaceOf(numbers).width, 79);
    // The buttons stay at the right edge.
    EXPECT_EQ(PlaceOf(*Find(stage, "OKButton").UI_GetParentNode()).left, grown);
    EXPECT_EQ(PlaceOf(*numbers.UI_GetParentNode()), RectT<float>(12, 14, 172 + grown, IsV7() ? 98 : 83));
  });
}

TEST_P(CurvePoint, WithoutAnOffscreenSurfaceTheDocumentsLayoutStays) {
  FailingSupplier supplier(*moxui::scriber::GetRasterSupplier());
  supplier.Refuse(moxui::testing::Refusal::kOffscreenSurface);
  Open(u"A caption that takes far more room than there is", u"Y", &supplier);
  Run([&](Stage& stage) {
    EXPECT_EQ(PlaceOf(Find(stage, "StaticText1")).width, 80);
    EXPECT_EQ(stage.GetTree().GetSize(), ExtentT<float>(197, 118));
  });
}

TEST_P(CurvePoint, ACopySharesTheDialogAndItsControls) {
  Open(u"X", u"Y");
  auto const copy = MakeIntrusive<CurvePointEditDialog>(*mDialog);
  EXPECT_EQ(copy->GetHotTextNumber1(), mDialog->GetHotTextNumber1());
  EXPECT_EQ(copy->GetHotTextNumber2(), mDialog->GetHotTextNumber2());
  mAnswers.ExpectDriven([](Stage& stage) { stage.Click(stage.CenterOf(Find(stage, "OKButton"))); });
  copy->RunModal();
  EXPECT_EQ(copy->GetResponse(), Response::kOk);
}

TEST_P(CurvePoint, LooksAsWasAgreedOn) {
  Open(u"Input:", u"Output:");
  mDialog->GetHotTextNumber1()->SetValue(64);
  mDialog->GetHotTextNumber2()->SetValue(80);
  Run([&](Stage& stage) {
    char const* const name = IsV7() ? "color/curve_point_dialog.png" : "color/curve_point_dialog_classic.png";
    auto const picture = stage.TakePicture(2);
    EXPECT_EQ(moxui::testing::ComparePicture(picture, moxui::testing::GoldenPath(name)), "");
    mDialog->GetHotTextNumber2()->SetValue(81);
    EXPECT_GT(moxui::testing::FindDifference(stage.TakePicture(2), picture).differingPixels, 0);
  });
}

TEST_P(CurvePoint, ItsButtonsSpeakTheRunningLanguage) {
  auto& localizer = moxcore::config::Localizer::Get();
  Initialize(moxui::scriber::GetRasterSupplier());  // brings the catalogues
  localizer.SetLanguage("de");
  Open(u"X", u"Y");
  Run([&](Stage& stage) {
    EXPECT_EQ(Find<UI_TextButton>(stage, "CancelButton").GetTextLabel(), u"Abbrechen");
  });
  localizer.SetLanguage("");
  Terminate();
}

TEST(CurvePointWindow, CantBecomeSmallerThanItsCaptionsNeed) {
  Initialize(moxui::scriber::GetRasterSupplier());
  std::vector<std::pair<Utf16String, float>> const captions = {
      {u"X", 197.0f}, {u"A caption that takes far more room than there is", 297.0f}};
  for (auto const& [caption, least] : captions) {
    auto const dialog =
        MakeIntrusive<CurvePointEditDialog>(u"", caption, u"Y", moxui::dialogs::WindowVariant());
    moxui::platform::Application::Get()->PostDelayed(0, [least = least] {
      moxui::ui::NodeTree& tree = *moxui::ui::UI_NodeManager::Get(false)->GetTrees().back();
      ExtentT<float> const size = tree.GetSize();
      EXPECT_GE(size.width, least);
      EXPECT_EQ(size.height, 118.0f);
      dynamic_cast<moxui::platform::Window&>(tree.GetHost()).SetSize({100, 50});
      EXPECT_EQ(tree.GetSize(), size);
      tree.HandleKey(moxui::ui::KeyboardEvent(moxui::ui::KeyAction::kKeyDown, KeyboardCode::kEscape));
    });
    dialog->RunModal();
    EXPECT_EQ(dialog->GetResponse(), Response::kCancel);
  }
  Terminate();
}

TEST_P(CurvePoint, KeysGoToNoEndOfARangeThatHasNone) {
  Open(u"X", u"Y");
  Run([&](Stage& stage) {
    stage.Key(KeyboardCode::kEnd);
    stage.Key(KeyboardCode::kUp);
  });
  EXPECT_EQ(mDialog->GetHotTextNumber1()->GetValue(), 1);
}

}  // namespace
}  // namespace moxmediaui
