// Archives that went wrong in thousands of ways are told of, each with its line, and leave no node behind.
#include "MadeUpArchive.h"

#include <moxcore/config/Errors.h>
#include <moxui/archive/UINodeArchive.h>
#include <moxui/ui/UI_NodeBuilder.h>
#include <moxui/ui/UI_SubView.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace moxui::ui {
namespace {

using moxcore::utility::IntrusivePtr;
using moxcore::utility::MakeIntrusive;
using testing::Bounds;
using testing::Children;
using testing::Choice;
using testing::Constraints;
using testing::DocumentOf;
using testing::Narrow;
using testing::NodeOf;
using testing::Pair;
using testing::Signed;
using testing::SubViewOf;
using testing::Wide;

constexpr int kArchives = 5000;

class CountedView : public UI_SubView {
 public:
  CountedView() { ++alive; }
  ~CountedView() override { --alive; }
  static inline int alive = 0;
};

std::string SoundArchive() {
  std::string const text =
      NodeOf("moxui::controls::UI_StaticText",
             {{"moxui::controls::UI_StaticText",
               Pair("text", Wide("($$$/a/b=Text)")) + Pair("alignment", Choice("1"))},
              {"moxui::ui::UI_Node", Bounds("0", "0", "80", "19") + Pair("id", Narrow("Text"))}});
  std::string const popup =
      NodeOf("moxui::controls::UI_Popup",
             {{"moxui::controls::UI_Popup",
               Pair("popupItems", "<array><array.type>ustring</array.type><ustring>One</ustring></array>")},
              {"moxui::controls::UI_ControlView", Pair("value", Signed("0"))},
              {"moxui::ui::UI_SubView", Constraints("4")},
              {"moxui::ui::UI_Node", Bounds("88", "0", "80", "19") + Pair("id", Narrow("Popup"))}});
  std::string const own = NodeOf("test::Counted", {{"moxui::ui::UI_Node", Bounds("0", "24", "80", "19")}});
  return DocumentOf(SubViewOf(Pair("LayoutChildren", "<true/>") + Children({own, text, popup}),
                              Bounds("0", "0", "168", "43") + Pair("id", Narrow("Root"))));
}

// Harms a text in one of the ways in which files go wrong.
class Harm {
 public:
  explicit Harm(unsigned seed) : mRandom(seed) {}

  void Do(std::string& text) {
    std::size_t const at = Below(text.size());
    switch (Below(8)) {
      case 0:
        text[at] = static_cast<char>(Below(256));
        break;
      case 1:
        text.resize(at);
        break;
      case 2:
        text.erase(at, 1 + Below(40));
        break;
      case 3:
        text.insert(at, text, Below(text.size()), 1 + Below(200));
        break;
      case 4:
        text.insert(at, kWords[Below(std::size(kWords))]);
        break;
      case 5:
        ReplaceElement(text, at);
        break;
      case 6:
        RemoveElement(text, at);
        break;
      default:
        ReplaceNumber(text, at);
    }
    if (text.empty()) {
      text = "<";
    }
  }

 private:
  static constexpr std::string_view kWords[] = {"<true/>",   "</prop.list>", "<prop.pair>", "<!DOCTYPE a>",
                                                "&lt;",      "&x;",          "nan",         "]]>",
                                                "<![CDATA[", "\xff"};

  std::size_t Below(std::size_t end) { return end == 0 ? 0 : mRandom() % end; }

  static void ReplaceElement(std::string& text, std::size_t at) {
    std::size_t const open = text.find('<', at);
    std::size_t const close = text.find('>', open);
    if (close != std::string::npos) {
      text.replace(open, close - open + 1, "<array>");
    }
  }
  static void RemoveElement(std::string& text, std::size_t at) {
    std::size_t const open = text.find("<prop.pair>", at);
    std::size_t const close = text.find("</prop.pair>", open);
    if (close != std::string::npos) {
      text.erase(open, close + 12 - open);
    }
  }
  void ReplaceNumber(std::string& text, std::size_t at) {
    static constexpr std::string_view kNumbers[] = {"nan", "-1", "99999999999", "1e400",
                                                    "0x1", "",   "2.5",         "inf"};
    std::size_t const digit = text.find_first_of("0123456789", at);
    if (digit != std::string::npos) {
      text.replace(digit, 1, kNumbers[Below(std::size(kNumbers))]);
    }
  }

  std::mt19937 mRandom;
};

TEST(BadArchives, AreToldOfWithTheirLinesAndLeaveNoNode) {
  std::string const sound = SoundArchive();
  CustomNodeFactory const factory = [](moxcore::Utf8String const& type) {
    return type == "test::Counted" ? MakeIntrusive<CountedView>() : IntrusivePtr<CountedView>();
  };
  ASSERT_NO_THROW(UI_NodeBuilder(sound).Build(nullptr, factory));
  Harm harm(20261121);
  int refused = 0;
  for (int i = 0; i < kArchives; ++i) {
    std::string harmed = sound;
    for (int times = 0; times <= i % 3; ++times) {
      harm.Do(harmed);
    }
    try {
      UI_NodeBuilder const builder(harmed);
      ASSERT_EQ(archive::ReadArchive(archive::WriteArchive(builder.GetArchive())), builder.GetArchive());
      builder.Build(nullptr, factory);
    } catch (moxcore::config::mox_exception const& error) {
      ++refused;
      ASSERT_NE(std::string_view(error.what()).find("line "), std::string_view::npos) << error.what();
    }
    ASSERT_EQ(CountedView::alive, 0) << harmed;
  }
  // Most of the harm is seen; the rest changed no more than a text or a number.
  EXPECT_GT(refused, kArchives * 3 / 5);
  EXPECT_NO_THROW(UI_NodeBuilder(sound).Build(nullptr, factory));
}

}  // namespace
}  // namespace moxui::ui
