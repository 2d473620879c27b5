// The dialog over a document that lacks a node, or has one of another type in its place.
#include "support/ChangedArchive.h"

#include <moxcore/config/Errors.h>
#include <moxmediaui/CurvePointEditDialog.h>
#include <moxmediaui/Module.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/skins/Look.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace moxmediaui {
namespace {

using Response = CurvePointEditDialog::Response;

constexpr char const* kDocument = "CurvePointEditDialog";
constexpr char const* kConversion =
    "$$$/moxcore/utility/Error/InvalidTypeConversion=Invalid type conversion.";

class BrokenCurveDialog : public ::testing::TestWithParam<std::tuple<char const*, bool>> {
 protected:
  BrokenCurveDialog() {
    moxui::skins::SetRunningV7OrBeyond(std::get<1>(GetParam()));
    Initialize(moxui::scriber::GetRasterSupplier());
  }
  ~BrokenCurveDialog() override {
    Terminate();
    moxui::skins::SetRunningV7OrBeyond(true);
  }

  static char const* Node() { return std::get<0>(GetParam()); }
  static IntrusivePtr<CurvePointEditDialog> Make() {
    return moxcore::utility::MakeIntrusive<CurvePointEditDialog>(u"Curve Point", u"X", u"Y",
                                                                 moxui::dialogs::WindowVariant());
  }
  /// The error that its construction ends with, by its code; empty when there is none.
  static std::string ErrorOfMaking() {
    std::size_t const trees = CountTrees();
    std::string code;
    try {
      Make();
    } catch (moxcore::config::mox_exception const& error) {
      code = std::string(error.GetCode());
    }
    EXPECT_EQ(CountTrees(), trees) << "a window is left";
    return code;
  }
  static std::size_t CountTrees() { return moxui::ui::UI_NodeManager::Get(true)->GetTrees().size(); }
};

std::string NameOf(::testing::TestParamInfo<std::tuple<char const*, bool>> const& one) {
  return std::string(std::get<0>(one.param)) + (std::get<1>(one.param) ? "V7" : "Classic");
}

class CurveDialogWithoutACaption : public BrokenCurveDialog {};
class CurveDialogWithoutAControl : public BrokenCurveDialog {};

auto const kLooks = ::testing::Bool();
INSTANTIATE_TEST_SUITE_P(Nodes, BrokenCurveDialog,
                         ::testing::Combine(::testing::Values("StaticText1", "StaticText2", "Number1",
                                                              "Number2", "OKButton", "CancelButton"),
                                            kLooks),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Nodes, CurveDialogWithoutACaption,
                         ::testing::Combine(::testing::Values("StaticText1", "StaticText2"), kLooks), NameOf);
INSTANTIATE_TEST_SUITE_P(
    Nodes, CurveDialogWithoutAControl,
    ::testing::Combine(::testing::Values("Number1", "Number2", "OKButton", "CancelButton"), kLooks), NameOf);

TEST_P(BrokenCurveDialog, IsntMadeWithANodeOfAnotherType) {
  {
    // The node itself lends its id to one of another type.
    std::string const other = std::string(Node()).starts_with("Static") ? "Number2" : "StaticText2";
    tests::ChangedArchive archive(kDocument);
    ASSERT_TRUE(archive.Rename(Node(), "Another"));
    ASSERT_TRUE(archive.Rename(other, Node()));
    EXPECT_EQ(ErrorOfMaking(), kConversion);
  }
  EXPECT_EQ(ErrorOfMaking(), "");
}

TEST_P(CurveDialogWithoutACaption, IsntMade) {
  tests::ChangedArchive archive(kDocument);
  ASSERT_TRUE(archive.Rename(Node(), "Another"));
  EXPECT_EQ(ErrorOfMaking(), "$$$/moxcore/utility/Error/NullPointer=A null pointer of type @0 was used.");
}

TEST_P(CurveDialogWithoutAControl, WorksWithTheOthers) {
  tests::ChangedArchive archive(kDocument);
  ASSERT_TRUE(archive.Rename(Node(), "Another"));
  auto const dialog = Make();
  EXPECT_EQ(dialog->GetHotTextNumber1() == nullptr, Node() == std::string("Number1"));
  EXPECT_EQ(dialog->GetHotTextNumber2() == nullptr, Node() == std::string("Number2"));
  moxui::testing::ModalAnswers answers;
  answers.ExpectDriven([](moxui::testing::Stage& stage) { stage.Key(moxui::ui::KeyboardCode::kEscape); });
  dialog->RunModal();
  EXPECT_EQ(dialog->GetResponse(), Response::kCancel);
}

}  // namespace
}  // namespace moxmediaui
