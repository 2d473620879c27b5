#pragma once

#include "FakeProvider.h"

#include <moxcore/config/ApplicationName.h>
#include <moxcore/string/Encoding.h>
#include <moxmediaui/Module.h>
#include <moxmediaui/PresetsView.h>
#include <moxui/controls/UI_TextEdit.h>
#include <moxui/scriber/RasterSupplier.h>
#include <moxui/testing/ModalAnswers.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace moxmediaui {

/// A presets view on a stage, over a provider that does as it is told.
class Presets : public ::testing::Test {
 protected:
  Presets() {
    Initialize(moxui::scriber::GetRasterSupplier());
    moxcore::config::SetApplicationName("Presets Test");
    mView = PresetsView::Create();
    mView->Initialize(GetResourceManager(), GetDrawSupplier(), GetModuleImageProvider());
    ExtentT<float> const size = mView->UI_GetRecommendedSize(nullptr);
    mView->UI_SetLocalRectF({10, 10, size.width, size.height});
    mStage.GetRootView().ChildPushBack(mView);
  }
  ~Presets() override {
    if (mView) {
      mView->SetPresetProvider(nullptr);
    }
    mStage.GetRootView().DeleteChildren();
    mView.Reset();
    Terminate();
  }

  void Connect() { mView->SetPresetProvider(&mProvider); }

  moxui::controls::UI_Popup& Popup() { return Child<moxui::controls::UI_Popup>(0); }
  moxui::controls::UI_PictureButton& SaveButton() { return Child<moxui::controls::UI_PictureButton>(1); }
  moxui::controls::UI_PictureButton& DeleteButton() { return Child<moxui::controls::UI_PictureButton>(2); }

  /// The popup's items, separators as "-".
  std::vector<Utf16String> Shown() {
    std::vector<Utf16String> texts;
    for (auto const& item : Popup().GetItems()) {
      texts.push_back(item.isSeparator ? u"-" : item.text);
    }
    return texts;
  }

  /// Opens the popup's menu with a click and chooses from it.
  void Choose(Utf16String const& item) {
    mAnswers.ExpectItem(item);
    mAnswers.SetDefault(1);  // of a stop box that may follow
    mStage.Click(mStage.CenterOf(Popup()));
  }

  // What the user does in the boxes that will open, in their order.
  void TypeAndAccept(Utf16String const& name) {
    mAnswers.ExpectDriven([name](moxui::testing::Stage& box) {
      box.Type(name);
      box.Key(moxui::ui::KeyboardCode::kReturn);
    });
  }
  void Accept() {
    mAnswers.ExpectDriven([](moxui::testing::Stage& box) { box.Key(moxui::ui::KeyboardCode::kReturn); });
  }
  void Dismiss() {
    mAnswers.ExpectDriven([](moxui::testing::Stage& box) { box.Key(moxui::ui::KeyboardCode::kEscape); });
  }
  /// Accepts after emptying the field.
  void EmptyAndAccept() {
    mAnswers.ExpectDriven([](moxui::testing::Stage& box) {
      box.Key(moxui::ui::KeyboardCode::kDelete);
      box.Key(moxui::ui::KeyboardCode::kReturn);
    });
  }
  /// Accepts what stands in the field and keeps it in `mOffered`.
  void AcceptOffered() {
    mAnswers.ExpectDriven([this](moxui::testing::Stage& box) {
      mOffered = dynamic_cast<moxui::controls::UI_TextEdit&>(*box.GetRootView().ChildGet(1)).GetValue();
      box.Key(moxui::ui::KeyboardCode::kReturn);
    });
  }

  void PressSave() { mStage.Click(mStage.CenterOf(SaveButton())); }
  void PressDelete() { mStage.Click(mStage.CenterOf(DeleteButton())); }

  /// The texts of all boxes that have opened, menus apart.
  std::vector<std::string> Boxes() const {
    std::vector<std::string> texts;
    for (auto const& record : mAnswers.GetRecords()) {
      if (record.kind != moxui::platform::ModalKind::kMenu) {
        texts.emplace_back(moxcore::string::UTF16to8(record.text));
      }
    }
    return texts;
  }
  std::vector<std::string> Titles() const {
    std::vector<std::string> texts;
    for (auto const& record : mAnswers.GetRecords()) {
      texts.emplace_back(moxcore::string::UTF16to8(record.title));
    }
    return texts;
  }

  moxui::testing::ModalAnswers mAnswers;
  moxui::testing::Stage mStage{ExtentT<float>(320, 60)};
  FakeProvider mProvider;
  IntrusivePtr<PresetsView> mView;
  Utf16String mOffered;

 private:
  template <class Control>
  Control& Child(std::size_t index) {
    return dynamic_cast<Control&>(*mView->GetContentView()->ChildGet(index));
  }
};

}  // namespace moxmediaui
