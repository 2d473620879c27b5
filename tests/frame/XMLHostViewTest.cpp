#include <moxcore/config/Errors.h>
#include <moxmediaui/XMLHostView.h>
#include <moxui/resources/ResourceManager.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/testing/RecordingSupplier.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

namespace moxmediaui {
namespace {

using moxcore::utility::MakeIntrusive;
using ::testing::HasSubstr;

// Resources of one archive, found by its name in capitals.
class OneArchive : public ResourceManager {
 public:
  OneArchive(std::string name, std::string const& text)
      : mName(std::move(name)), mBytes(text.begin(), text.end()) {}
  std::vector<Utf8String> GetResourceDataNames(moxui::utility::ResourceType) const override { return {}; }

 protected:
  std::optional<std::span<std::uint8_t const>> Find(moxui::utility::ResourceType,
                                                    moxui::utility::ResourceName name) const override {
    std::string upper(name.value);
    for (char& unit : upper) {
      unit = static_cast<char>(std::toupper(static_cast<unsigned char>(unit)));
    }
    return upper == mName ? std::optional(std::span<std::uint8_t const>(mBytes)) : std::nullopt;
  }

 private:
  std::string mName;
  moxui::utility::ResourceBytes mBytes;
};

std::string NodeText(std::string const& adapter, std::string const& children, std::string const& nodePairs) {
  auto const wide = [](std::string const& text) { return "<ustring>" + text + "</ustring>"; };
  auto const pair = [](std::string const& key, std::string const& value) {
    return "<prop.pair><key>" + key + "</key>" + value + "</prop.pair>";
  };
  auto const list = [](std::string const& pairs) { return "<prop.list>" + pairs + "</prop.list>"; };
  return list(
      pair("adapter", wide(adapter)) +
      pair("sections",
           list(pair("count", "<int type='unsigned' size='32'>2</int>") +
                pair("section-0", list(pair("sectionName", wide("moxui::ui::UI_SubView")) + children)) +
                pair("section-1", list(pair("sectionName", wide("moxui::ui::UI_Node")) + nodePairs)))));
}

std::string Document(std::string const& root) {
  return "<prop.map version='4'><prop.list><prop.pair><key>UINodeArchive</key>"
         "<int type='unsigned' size='32'>1</int></prop.pair><prop.pair><key>root</key>" +
         root + "</prop.pair></prop.list></prop.map>";
}

std::string const kBounds =
    "<prop.pair><key>bounds</key><prop.list><prop.pair><key>.aptype</key><int type='signed' size='32'>1</int>"
    "</prop.pair><prop.pair><key>left</key><float>3</float></prop.pair>"
    "<prop.pair><key>top</key><float>4</float></prop.pair>"
    "<prop.pair><key>width</key><float>254</float></prop.pair>"
    "<prop.pair><key>height</key><float>20</float></prop.pair></prop.list></prop.pair>"
    "<prop.pair><key>visible</key><false/></prop.pair>"
    "<prop.pair><key>id</key><string>Root</string></prop.pair>";

// Tells what it is asked, and gives what it is told to give.
class HostView : public XMLHostView {
 public:
  explicit HostView(std::string const& name) : XMLHostView(name) {}
  using XMLHostView::GetDrawSupplier;
  using XMLHostView::GetNodeMap;
  using XMLHostView::Init;

  mutable std::string log;
  IntrusivePtr<UI_Node> custom;

 protected:
  IntrusivePtr<UI_Node> CreateCustomNode(Utf8String const& type) const override {
    log += "make " + std::string(type) + "; ";
    return custom ? custom : XMLHostView::CreateCustomNode(type);
  }
  void ConnectControls() override {
    log +=
        GetContentView() && GetContentView()->UI_GetParentNode() == this ? "connect; " : "connect nothing; ";
  }
};

std::string ErrorOf(HostView& view, OneArchive& resources) {
  try {
    view.Init(&resources, nullptr);
  } catch (moxcore::config::mox_exception const& error) {
    return error.what();
  }
  return "no error";
}

TEST(XMLHostView, LoadsNothingBeforeInit) {
  auto const view = MakeIntrusive<HostView>("View");
  moxui::scriber::Scriber* const none = nullptr;
  EXPECT_FALSE(view->GetContentView());
  EXPECT_EQ(view->GetDrawSupplier(), nullptr);
  EXPECT_EQ(view->UI_GetRecommendedSize(none), ExtentT<float>());
  view->UI_SetLocalRectF({0, 0, 30, 40});
  EXPECT_EQ(view->ChildSize(), 0u);
}

TEST(XMLHostView, ShowsTheArchivesRootAsItsContent) {
  OneArchive resources("VIEW", Document(NodeText("moxui::ui::UI_SubView", "", kBounds)));
  moxui::testing::RecordingSupplier supplier;
  auto const view = MakeIntrusive<HostView>("View");
  view->Init(&resources, &supplier);
  ASSERT_TRUE(view->GetContentView());
  ASSERT_EQ(view->ChildSize(), 1u);
  EXPECT_EQ(view->ChildGet(0), view->GetContentView());
  EXPECT_TRUE(view->GetContentView()->UI_IsShown());
  EXPECT_EQ(view->GetDrawSupplier(), &supplier);
  EXPECT_EQ(view->UI_GetRecommendedSize(nullptr), ExtentT<float>(254, 20));
  EXPECT_EQ(view->GetNodeMap().at("Root"), view->GetContentView());
  EXPECT_EQ(view->log, "connect; ");
}

TEST(XMLHostView, ItsContentTakesItsSize) {
  OneArchive resources("VIEW", Document(NodeText("moxui::ui::UI_SubView", "", kBounds)));
  auto const view = MakeIntrusive<HostView>("View");
  view->Init(&resources, nullptr);
  view->UI_SetLocalRectF({10, 20, 300, 30});
  EXPECT_EQ(view->GetContentView()->UI_GetLocalRectF(moxui::ui::RectSpace::kParent),
            RectT<float>(0, 0, 300, 30));
  EXPECT_EQ(view->UI_GetRecommendedSize(nullptr), ExtentT<float>(254, 20));
}

TEST(XMLHostView, ANewerLookHasADocumentOfItsOwn) {
  OneArchive resources("VIEW.V7", Document(NodeText("moxui::ui::UI_SubView", "", kBounds)));
  auto const view = MakeIntrusive<HostView>("View");
  view->Init(&resources, nullptr);  // a process starts in it
  EXPECT_TRUE(view->GetContentView());
}

TEST(XMLHostView, WithoutADocumentTheNullPointerIsToldWithItsType) {
  OneArchive resources("OTHER", "");
  auto const view = MakeIntrusive<HostView>("View");
  EXPECT_THAT(ErrorOf(*view, resources), HasSubstr("moxui::ui::UI_SubView"));
  EXPECT_EQ(view->log, "connect nothing; ");
}

TEST(XMLHostView, ARootThatIsNoSubViewIsNoContent) {
  OneArchive resources("VIEW", Document(NodeText("moxui::ui::UI_Node", "", kBounds)));
  auto const view = MakeIntrusive<HostView>("View");
  EXPECT_THAT(ErrorOf(*view, resources), HasSubstr("moxui::ui::UI_SubView"));
  EXPECT_FALSE(view->GetContentView());
  EXPECT_EQ(view->ChildSize(), 0u);
}

TEST(XMLHostView, ACustomClassFailsUnlessASubclassMakesIt) {
  OneArchive resources("VIEW", Document(NodeText("test::Wheel", "", kBounds)));
  auto const plain = MakeIntrusive<HostView>("View");
  EXPECT_THAT(ErrorOf(*plain, resources), HasSubstr("test::Wheel"));
  EXPECT_EQ(plain->log, "make test::Wheel; ");
  auto const making = MakeIntrusive<HostView>("View");
  making->custom = MakeIntrusive<UI_SubView>();
  EXPECT_EQ(ErrorOf(*making, resources), "no error");
  EXPECT_EQ(making->GetContentView(), making->custom);
}

TEST(XMLHostView, ErrorsOfTheLoaderGoThrough) {
  OneArchive resources("VIEW", "<prop.map version='4'>\n</prop.list>");
  auto const view = MakeIntrusive<HostView>("View");
  EXPECT_THAT(ErrorOf(*view, resources), HasSubstr("line 2"));
}

}  // namespace
}  // namespace moxmediaui
