// Controls painted with a supplier that has run out of something.
#include "ControlFaces.h"
#include "RunningLook.h"

#include <moxcore/config/Errors.h>
#include <moxui/platform/Application.h>
#include <moxui/scriber/ImageInterface.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/scriber/SurfaceInterface.h>
#include <moxui/testing/FailingSupplier.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/UI_NodeManager.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace moxui::testing {
namespace {

struct Refused {
  Refusal refusal;
  std::string type;  ///< in the error's text
};

// The supplier that controls ask on their own, while it lives.
class DefaultSupplier {
 public:
  explicit DefaultSupplier(scriber::SupplierInterface const& supplier) {
    ui::UI_NodeManager::Get(true)->SetDefaultDrawSupplier(&supplier);
  }
  ~DefaultSupplier() { ui::UI_NodeManager::Get(true)->SetDefaultDrawSupplier(mBefore); }

 private:
  scriber::SupplierInterface const* mBefore = ui::UI_NodeManager::Get(true)->GetDefaultDrawSupplier();
};

class NullObjects : public ::testing::TestWithParam<ControlFace> {};

TEST_P(NullObjects, AreAnErrorThatNamesTheTypeOrAreDoneWithout) {
  ControlFace const& face = GetParam();
  for (bool const isV7 : {true, false}) {
    RunningLook const look(isV7);
    for (FaceState const state : face.states) {
      for (auto const& [refusal, type] :
           {Refused{Refusal::kPen, "PenInterface"}, Refused{Refusal::kPath, "PathInterface"},
            Refused{Refusal::kBrush, "BrushInterface"}, Refused{Refusal::kFont, "FontInterface"},
            Refused{Refusal::kImage, "ImageInterface"}, Refused{Refusal::kSnapshot, "ImageInterface"},
            Refused{Refusal::kOffscreenSurface, "SurfaceInterface"},
            Refused{Refusal::kLayer, "SurfaceInterface"}}) {
        SCOPED_TRACE(NameOf(state) + " without " + type + (isV7 ? " in V7" : " in classic"));
        FailingSupplier supplier(*platform::Application::Get()->GetDrawSupplier());
        DefaultSupplier const isDefault(supplier);
        scriber::SurfaceP const surface = supplier.NewOffscreenSurface(200, 120, 1.0f);
        Stage stage;
        auto const control = face.make();
        control->UI_SetLocalRectF({0, 0, face.size.width, face.size.height});
        stage.GetRootView().ChildPushBack(control);
        PutIntoState(stage, *control, state);
        RectT<float> const clip = surface->GetClipBounds();
        auto const mode = surface->GetDrawingMode();
        auto const smoothing = surface->GetSmoothing();
        scriber::Scriber scriber(&supplier, surface.Get());

        supplier.Refuse(refusal);
        try {
          ui::PaintNode(*control, scriber);
        } catch (moxcore::config::mox_exception const& error) {
          EXPECT_NE(std::string(error.what()).find(type), std::string::npos) << error.what();
        }

        EXPECT_EQ(surface->GetClipBounds(), clip);
        EXPECT_EQ(surface->GetDrawingMode(), mode);
        EXPECT_EQ(surface->GetSmoothing(), smoothing);
        supplier.Allow(refusal);
        EXPECT_NO_THROW(ui::PaintNode(*control, scriber));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Stock, NullObjects, ::testing::ValuesIn(GetControlFaces()),
                         [](auto const& face) { return face.param.name; });

// The loop above must meet some errors, or it proves nothing.
TEST(NullObjects, AButtonWithoutAPathIsAnError) {
  RunningLook const look(true);
  FailingSupplier supplier(*platform::Application::Get()->GetDrawSupplier());
  scriber::SurfaceP const surface = supplier.NewOffscreenSurface(200, 120, 1.0f);
  ControlFace const& face = GetControlFaces().front();
  auto const control = face.make();
  control->UI_SetLocalRectF({0, 0, face.size.width, face.size.height});
  scriber::Scriber scriber(&supplier, surface.Get());
  supplier.Refuse(Refusal::kPath);
  EXPECT_THROW(ui::PaintNode(*control, scriber), moxcore::config::mox_exception);
}

}  // namespace
}  // namespace moxui::testing
