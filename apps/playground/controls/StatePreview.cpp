#include "controls/StatePreview.h"

#include <moxui/controls/UI_ControlView.h>
#include <moxui/skins/LayoutDirection.h>
#include <moxui/ui/NodeTree.h>
#include <moxui/ui/UI_NodeManager.h>

#include <utility>

namespace playground {
namespace {

using moxui::RectT;
using moxui::controls::UI_ControlView;
using moxui::ui::NodeTree;
using moxui::ui::UI_Node;
using moxui::ui::UI_NodeManager;

// Room for what controls draw outside of themselves, focus rings above all.
constexpr float kReach = 8.0f;

}  // namespace

StatePreview::StatePreview() {
  mTree.reset(new NodeTree(*this));  // NOLINT(modernize-make-unique): the host is a private base
}

StatePreview::~StatePreview() = default;

void StatePreview::SetView(moxcore::utility::IntrusivePtr<moxui::ui::UI_Node> view, SampleState state,
                           PreviewAim aim) {
  mView = std::move(view);
  mState = state;
  mAim = std::move(aim);
  Freeze();
  UI_Invalidate();
}

void StatePreview::PointAt(moxui::PointT<float> point) {
  moxui::ui::PointerInput input;
  input.position = point;
  mTree->HandlePointer(input);
}

void StatePreview::PressAt(moxui::PointT<float> point) {
  moxui::ui::PointerInput input;
  input.action = moxui::ui::PointerAction::kPress;
  input.button = moxui::ui::MouseButton::kLeft;
  input.position = point;
  mTree->HandlePointer(input);
}

// Of a view that is made of others, the one that would be pressed. Controls are told that they are: a press
// would open menus, and move what is dragged. What is no control, a row or the name of a column, is pressed.
void StatePreview::PressWhatIsUnderThePointer() {
  auto const hovered = mTree->GetHoveredNode();
  if (dynamic_cast<UI_ControlView*>(hovered.Get()) == nullptr) {
    PressAt(AimedPoint());
    return;
  }
  for (UI_Node* node = hovered.Get(); node != nullptr; node = node->UI_GetParentNode()) {
    if (auto* const part = dynamic_cast<UI_ControlView*>(node)) {
      part->SetDownState(true);
    }
  }
}

moxui::PointT<float> StatePreview::AimedPoint() const {
  if (mAim.part != nullptr) {
    return mAim.part->UI_ConvertRectTo(nullptr, mAim.part->UI_GetLocalRectF(false)).Center();
  }
  RectT<float> const own = UI_GetLocalRectF(false);
  float const across = moxui::skins::IsRightToLeft() ? 1.0f - mAim.pointer.x : mAim.pointer.x;
  return {own.width * across, own.height * mAim.pointer.y};
}

void StatePreview::FocusWhatIsMeant() {
  if (mAim.part != nullptr) {
    mTree->SetFocus(mAim.part, moxui::ui::FocusChangeReason::kTraversal);
  } else {
    mTree->MoveFocus(false);
  }
}

void StatePreview::MakeUnknown() {
  if (mAim.makeUnknown) {
    mAim.makeUnknown();
  } else if (auto* const control = dynamic_cast<UI_ControlView*>(mView.Get())) {
    control->SetValueUnknown();
  }
}

void StatePreview::Freeze() {
  RectT<float> const own = UI_GetLocalRectF(false);
  if (!mView || own.IsEmpty()) {
    return;
  }
  // The tree of the window stays the one that menus and captures belong to.
  NodeTree* const active = UI_NodeManager::Get(true)->GetCurrentTree();
  mIsFreezing = true;
  mTree->SetRoot(nullptr);
  mTree->SetSize(own.Extent());
  mTree->SetScale(GetViewScaleFactor());
  mView->UI_SetDisabled(mState == SampleState::kDisabled);
  if (mState == SampleState::kUnknown) {
    MakeUnknown();
  }
  mTree->SetRoot(mView);
  mTree->SetActive(true);
  if (mState == SampleState::kHover || mState == SampleState::kPressed) {
    PointAt(AimedPoint());
  }
  if (mState == SampleState::kPressed) {
    PressWhatIsUnderThePointer();
  }
  if (mState == SampleState::kFocused) {
    FocusWhatIsMeant();
  }
  mTree->PrepareFrame();
  mIsFreezing = false;
  if (active != nullptr && active != mTree.get() && active->IsActive()) {
    active->SetActive(true);
  }
}

void StatePreview::UI_Draw(moxui::scriber::Scriber* scriber) const {
  if (mView) {
    moxui::ui::PaintNode(*mView, *scriber);
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
