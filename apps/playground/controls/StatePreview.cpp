#include "controls/StatePreview.h"

#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::ui::NodeTree;
using moxui::ui::UI_NodeManager;

// Room for what controls draw outside of themselves, focus rings above all.
constexpr float kReach = 8.0f;

}  // namespace

StatePreview::StatePreview() {
  mTree.reset(new NodeTree(*this));  // NOLINT(modernize-make-unique): the host is a private base
}

StatePreview::~StatePreview() = default;

void StatePreview::SetControl(moxcore::utility::IntrusivePtr<moxui::controls::UI_ControlView> control,
                              SampleState state) {
  mControl = std::move(control);
  mState = state;
  Freeze();
  UI_Invalidate();
}

void StatePreview::PointAt(moxui::PointT<float> point) {
  moxui::ui::PointerInput input;
  input.position = point;
  mTree->HandlePointer(input);
}

void StatePreview::Freeze() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (!mControl || own.IsEmpty()) {
    return;
  }
  // The tree of the window stays the one that menus and captures belong to.
  NodeTree* const active = UI_NodeManager::Get(true)->GetCurrentTree();
  mIsFreezing = true;
  mTree->SetRoot(nullptr);
  mTree->SetSize(own.Extent());
  mTree->SetScale(GetViewScaleFactor());
  mControl->UI_SetDisabled(mState == SampleState::kDisabled);
  mControl->SetDownState(mState == SampleState::kPressed);
  if (mState == SampleState::kUnknown) {
    mControl->SetValueUnknown();
  }
  mTree->SetRoot(mControl);
  mTree->SetActive(true);
  if (mState == SampleState::kHover || mState == SampleState::kPressed) {
    PointAt(own.Center());
  }
  if (mState == SampleState::kFocused) {
    mTree->MoveFocus(false);
  }
  mTree->PrepareFrame();
  mIsFreezing = false;
  if (active != nullptr && active != mTree.get() && active->IsActive()) {
    active->SetActive(true);
  }
}

void StatePreview::UI_Draw(moxui::scriber::Scriber* scriber) const {
  if (mControl) {
    moxui::ui::PaintNode(*mControl, *scriber);
  }
}

void StatePreview::UI_SizeChanged(RectT<float> const&) {
  Freeze();
}

void StatePreview::UI_ScaleChanged(float) {
  Freeze();
}

moxui::PaddingT<float> StatePreview::UI_GetDrawOverhang() const {
  return {kReach, kReach, kReach, kReach};
}

bool StatePreview::UI_ContainsPoint(moxui::PointT<float>) const {
  return false;
}

void StatePreview::RequestFrame() {
  if (!mIsFreezing) {
    UI_Invalidate();
  }
}

}  // namespace playground
