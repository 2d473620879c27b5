#include <moxui/platform/Application.h>
#include <moxui/platform/Window.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/ui/MouseEvent.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_SubView.h>

#include <gmock/gmock.h>

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPixmap>
#include <QWheelEvent>
#include <QWidget>
#include <vector>

namespace moxui {
namespace {

using moxcore::utility::MakeIntrusive;

// Remembers where the pointer was, and fills a square at its origin.
class PointedNode : public ui::UI_SubView {
 public:
  bool UI_DoPointerEvent(ui::UI_Node*, ui::PointerEvent const& event) override {
    points.push_back(event.GetPosition());
    return true;
  }
  void UI_Draw(scriber::Scriber* scriber) const override {
    scale = scriber->GetSurface()->GetScale();
    scriber->GetSurface()->FillRect({0, 0, 10, 10}, {1, 0, 0, 1});
  }

  std::vector<PointT<float>> points;
  mutable float scale = 0;
};

class WindowZoom : public ::testing::Test {
 protected:
  WindowZoom() {
    window->GetTree().SetRoot(node);
    window->Show();
    platform::Application::Get()->ProcessEvents();
    node->points.clear();
  }
  QWidget& Widget() { return *static_cast<QWidget*>(window->GetNativeHandle()); }

  std::unique_ptr<platform::Window> window = platform::Application::Get()->CreateWindow({.size = {80, 60}});
  moxcore::utility::IntrusivePtr<PointedNode> node = MakeIntrusive<PointedNode>();
};

TEST_F(WindowZoom, MakesTheTreeSmallerAndItsPixelsLarger) {
  window->SetZoom(2);
  EXPECT_EQ(window->GetTree().GetSize(), (ExtentT<float>{40, 30}));
  EXPECT_EQ(window->GetTree().GetScale(), 2 * static_cast<float>(Widget().devicePixelRatioF()));
  window->SetZoom(1);
  EXPECT_EQ(window->GetTree().GetSize(), (ExtentT<float>{80, 60}));
}

TEST_F(WindowZoom, ThatMeansNothingIsPassedOver) {
  window->SetZoom(0);
  window->SetZoom(-1);
  EXPECT_EQ(window->GetTree().GetSize(), (ExtentT<float>{80, 60}));
}

TEST_F(WindowZoom, PutsThePointerWhereItIsSeen) {
  window->SetZoom(2);
  node->points.clear();
  QMouseEvent press(QEvent::MouseButtonPress, QPointF(30, 20), Widget().mapToGlobal(QPointF(30, 20)),
                    Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&Widget(), &press);
  ASSERT_FALSE(node->points.empty());
  EXPECT_EQ(node->points.back(), (PointT<float>{15, 10}));
}

TEST_F(WindowZoom, KeepsPlacesOnTheDesktopInThoseOfTheDesktop) {
  window->SetZoom(2);
  auto const origin = node->UI_LocalToGlobalF({0, 0});
  auto const place = node->UI_LocalToGlobalF({10, 5});
  EXPECT_EQ(place - origin, (PointT<float>{20, 10}));
  EXPECT_EQ(node->UI_GlobalToLocalF(place), (PointT<float>{10, 5}));
}

TEST_F(WindowZoom, PaintsLarger) {
  window->SetZoom(2);
  node->UI_Invalidate();
  node->UI_UpdateNow();
  EXPECT_EQ(node->scale, window->GetTree().GetScale());
  QImage const picture = Widget().grab().toImage();
  auto const ratio = static_cast<float>(picture.width()) / 80;
  auto const at = [&](float x, float y) {
    return picture.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
  };
  EXPECT_EQ(at(18, 18), QColor(Qt::red));
  EXPECT_NE(at(22, 18), QColor(Qt::red));
}

TEST_F(WindowZoom, RepaintsWhatWasDamagedAndNoMore) {
  window->SetZoom(1.5F);
  window->GetTree().PrepareFrame();
  node->UI_UpdateNow();
  node->UI_Invalidate({2, 2, 4, 4});
  EXPECT_TRUE(window->GetTree().NeedsFrame());
  node->UI_UpdateNow();
  EXPECT_FALSE(window->GetTree().NeedsFrame());
  EXPECT_EQ(Widget().grab().toImage().pixelColor(6, 6), QColor(Qt::red));
}

}  // namespace
}  // namespace moxui
