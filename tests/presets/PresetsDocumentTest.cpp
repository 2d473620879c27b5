// What the documents of the presets view say, beyond what can be seen of the view.
#include <moxcore/utility/ModuleHandle.h>
#include <moxcore/utility/ModuleResources.h>
#include <moxmediaui/Module.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace moxmediaui {
namespace {

using ::testing::ElementsAre;

/// A document without the blanks between its elements.
std::string Document(char const* name) {
  moxcore::utility::ResourceBytes bytes;
  auto const module = moxcore::utility::ModuleHandle::FromAddress(reinterpret_cast<void const*>(&Terminate));
  EXPECT_TRUE(moxcore::utility::GetBinaryFromModule(module, moxcore::utility::ResourceType("XML"),
                                                    moxcore::utility::ResourceName(name), bytes));
  std::string text;
  bool isBetween = true;
  for (auto const byte : bytes) {
    auto const unit = static_cast<char>(byte);
    bool const isBlank = unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n';
    if (!(isBetween && isBlank)) {
      text += unit;
      isBetween = unit == '>';
    }
  }
  return text;
}

/// The values of a key, in order of their nodes: what stands in the element behind it.
std::vector<std::string> ValuesOf(std::string_view text, std::string const& key) {
  std::vector<std::string> values;
  std::string const mark = "<key>" + key + "</key><";
  for (auto at = text.find(mark); at != std::string_view::npos; at = text.find(mark, at)) {
    at += mark.size();
    auto const end = text.find('>', at);
    auto const element = text.substr(at, end - at);
    values.emplace_back(element.ends_with('/') ? element.substr(0, element.size() - 1)
                                               : text.substr(end + 1, text.find('<', end) - end - 1));
  }
  return values;
}

class PresetsDocument : public ::testing::TestWithParam<char const*> {};

TEST_P(PresetsDocument, LaysOutItsChildrenByTheirConstraints) {
  auto const text = Document(GetParam());
  EXPECT_THAT(ValuesOf(text, "LayoutChildren"), ElementsAre("true", "false", "false", "false"));
  EXPECT_THAT(ValuesOf(text, "AutoLayout"), ElementsAre("false", "false", "false", "false"));
  EXPECT_THAT(ValuesOf(text, "constraints"), ElementsAre("4", "4", "5", "5"));
}

TEST_P(PresetsDocument, HasAPopupWithoutItems) {
  auto const text = Document(GetParam());
  EXPECT_THAT(ValuesOf(text, "drawDivider"), ElementsAre("true"));
  EXPECT_THAT(ValuesOf(text, "alwaysNotify"), ElementsAre("false"));
  EXPECT_NE(text.find("<key>popupItems</key><array><array.type>ustring</array.type></array>"),
            std::string::npos);
}

TEST_P(PresetsDocument, NamesPicturesAndToolTips) {
  auto const text = Document(GetParam());
  EXPECT_THAT(ValuesOf(text, "imageName"), ElementsAre("Save_Md", "Delete_Md"));
  EXPECT_THAT(ValuesOf(text, "contentOffsetY"), ElementsAre("0", "-1", "0"));
  EXPECT_NE(text.find("<ustring>($$$/CommonPresetText/SaveSettingsAsAPreset=Save settings as a "
                      "preset)</ustring>"),
            std::string::npos);
  EXPECT_NE(text.find("<ustring>($$$/CommonPresetText/DeletePreset=Delete preset)</ustring>"),
            std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Looks, PresetsDocument, ::testing::Values("PRESETSVIEW", "PRESETSVIEW.V7"),
                         [](auto const& one) {
                           return std::string_view(one.param).ends_with("V7") ? "V7" : "Classic";
                         });

TEST(PresetsDocuments, TellTheSizesOfTheirTexts) {
  EXPECT_THAT(ValuesOf(Document("PRESETSVIEW"), "fontSize"), ElementsAre("11"));
  auto const text = Document("PRESETSVIEW.V7");
  EXPECT_THAT(ValuesOf(text, "fontSize"), ElementsAre("0"));
  auto const at = text.find("<key>fontSizeID</key>");
  ASSERT_NE(at, std::string::npos);
  EXPECT_EQ(ValuesOf(std::string_view(text).substr(at), "selected").at(0), "1");
  EXPECT_THAT(ValuesOf(text, "quiet"), ElementsAre("false", "true", "true"));
}

}  // namespace
}  // namespace moxmediaui
