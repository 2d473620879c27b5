#include "StandIn.h"

#include <moxcore/threads/HighPrecisionTime.h>
#include <moxcore/utility/IntrusivePtr.h>
#include <moxui/scriber/Scriber.h>
#include <moxui/testing/Stage.h>
#include <moxui/ui/KeyboardEvent.h>
#include <moxui/ui/UI_DragDropHandler.h>

#include <algorithm>
#include <cmath>

namespace moxui::testing {

namespace {

int PixelCount(float length, float scale) {
  return std::max(1, static_cast<int>(std::ceil(length * scale)));
}

ui::KeyboardCode From(ui::KeyboardCode first, int by) {
  return static_cast<ui::KeyboardCode>(static_cast<int>(first) + by);
}

/// The key that types a character; none for those that keyboards have in different places.
ui::KeyboardCode CodeOf(char16_t typed) {
  if (typed >= u'a' && typed <= u'z') {
    return From(ui::KeyboardCode::kA, typed - u'a');
  }
  if (typed >= u'A' && typed <= u'Z') {
    return From(ui::KeyboardCode::kA, typed - u'A');
  }
  if (typed >= u'0' && typed <= u'9') {
    return From(ui::KeyboardCode::k0, typed - u'0');
  }
  return typed == u' ' ? ui::KeyboardCode::kSpace : ui::KeyboardCode::kNone;
}

moxcore::utility::IntrusivePtr<ui::UI_Node> NewRootView() {
  return moxcore::utility::MakeIntrusive<ui::UI_SubView>();
}

}  // namespace

class Stage::Clock final : public moxcore::threads::HighPrecisionTime::Clock {
 public:
  explicit Clock(Stage const& stage)
      : mStage(stage), mStandIn(&moxcore::threads::HighPrecisionTime::SetClock, this) {}

  moxcore::threads::HighPrecisionTime::TimeStamp Now() const noexcept override {
    return static_cast<moxcore::threads::HighPrecisionTime::TimeStamp>(mStage.GetTime() * 1e6);
  }

 private:
  Stage const& mStage;
  StandIn<moxcore::threads::HighPrecisionTime::Clock const> mStandIn;
};

Stage::Stage(ExtentT<float> size)
    : mClock(std::make_unique<Clock>(*this)), mTree(std::make_unique<ui::NodeTree>(*this)) {
  mTree->SetSize(size);
  mTree->SetRoot(NewRootView());
  mTree->SetActive(true);
}

Stage::Stage(moxcore::utility::IntrusivePtr<ui::UI_Node> root)
    : mClock(std::make_unique<Clock>(*this)), mTree(std::make_unique<ui::NodeTree>(*this)) {
  mTree->SetSize(root->UI_GetLocalRectF(ui::RectSpace::kOwn).Extent());
  mTree->SetRoot(std::move(root));
  mTree->SetActive(true);
}

Stage::~Stage() {
  mTree->SetRoot(nullptr);  // while its nodes can still ask the stage
}

ui::UI_SubView& Stage::GetRootView() const {
  return dynamic_cast<ui::UI_SubView&>(*mTree->GetRoot());
}

bool Stage::Send(ui::PointerAction action, PointT<float> point, ui::MouseButton button, PointT<float> wheel) {
  mPointer = point;
  if (action == ui::PointerAction::kPress) {
    mButtons.Set(static_cast<unsigned char>(button));
  } else if (action == ui::PointerAction::kRelease) {
    mButtons.Set(static_cast<unsigned char>(button), false);
  }
  ui::PointerInput input;
  input.action = action;
  input.position = point;
  input.button = button;
  input.modKeys = mModKeys;
  input.subType = mSubType;
  input.wheelDistance = wheel;
  return mTree->HandlePointer(input);
}

bool Stage::Move(PointT<float> point) {
  return Send(ui::PointerAction::kMove, point, ui::MouseButton::kNone);
}

bool Stage::Press(PointT<float> point, ui::MouseButton button) {
  if (point != mPointer) {
    Move(point);
  }
  return Send(ui::PointerAction::kPress, point, button);
}

bool Stage::Release(PointT<float> point, ui::MouseButton button) {
  if (point != mPointer) {
    Move(point);
  }
  return Send(ui::PointerAction::kRelease, point, button);
}

void Stage::Click(PointT<float> point, ui::MouseButton button) {
  Press(point, button);
  Release(point, button);
}

void Stage::DoubleClick(PointT<float> point, ui::MouseButton button) {
  Click(point, button);
  Click(point, button);
}

void Stage::Drag(PointT<float> from, PointT<float> to, int moves, ui::MouseButton button) {
  Press(from, button);
  for (int i = 1; i <= moves; ++i) {
    float const part = static_cast<float>(i) / static_cast<float>(moves);
    Move({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
  }
  Release(to, button);
}

bool Stage::Wheel(PointT<float> point, PointT<float> distance) {
  if (point != mPointer) {
    Move(point);
  }
  return Send(ui::PointerAction::kWheel, point, ui::MouseButton::kNone, distance);
}

bool Stage::MoveBy(PointT<float> distance) {
  PointT<float> place = mPointer + distance;
  if (mScreen.width > 0 && mScreen.height > 0) {
    PointT<float> const corner = mScreen.TopLeft() - mOrigin;
    place.x = std::clamp(place.x, corner.x, corner.x + mScreen.width - 1);
    place.y = std::clamp(place.y, corner.y, corner.y + mScreen.height - 1);
  }
  // At the edge the platform has nothing more to tell.
  return place != mPointer && Move(place);
}

bool Stage::ReleaseHere(ui::MouseButton button) {
  return Send(ui::PointerAction::kRelease, mPointer, button);
}

void Stage::Leave() {
  mTree->HandlePointerLeft();
}

PointT<float> Stage::CenterOf(ui::UI_Node const& node) const {
  return node.UI_ConvertRectTo(nullptr, node.UI_GetLocalRectF(ui::RectSpace::kOwn)).Center();
}

bool Stage::Key(ui::KeyboardCode code, ui::ModKeys modKeys) {
  bool const taken = mTree->HandleKey({ui::KeyAction::kKeyDown, code, modKeys});
  mTree->HandleKey({ui::KeyAction::kKeyUp, code, modKeys});
  return taken;
}

void Stage::Type(std::u16string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    // A character beyond the first plane is typed as a whole.
    bool const isPair = text[i] >= 0xd800 && text[i] < 0xdc00 && i + 1 < text.size();
    moxcore::Utf16String const typed(text.substr(i, isPair ? 2 : 1));
    auto const code = isPair ? ui::KeyboardCode::kNone : CodeOf(text[i]);
    mTree->HandleKey({ui::KeyAction::kKeyDown, code, mModKeys, typed});
    mTree->HandleKey({ui::KeyAction::kKeyUp, code, mModKeys});
    i += typed.size();
  }
}

bool Stage::Tab(bool backward) {
  return Key(ui::KeyboardCode::kTab, backward ? ui::ModKeys(ui::ModKey::kShift) : ui::ModKeys());
}

int Stage::DragOver(PointT<float> point, ui::TransferData const& data, int proposedEffect) {
  ui::OS_ReceiveData received(data, mModKeys);
  mPointer = point;
  return mTree->HandleDrag(ui::DragPhase::kOver, point, received, proposedEffect);
}

int Stage::Drop(PointT<float> point, ui::TransferData const& data, int proposedEffect) {
  DragOver(point, data, proposedEffect);
  ui::OS_ReceiveData received(data, mModKeys);
  return mTree->HandleDrag(ui::DragPhase::kDrop, point, received, proposedEffect);
}

void Stage::DragAway(ui::TransferData const& data) {
  ui::OS_ReceiveData received(data, mModKeys);
  mTree->HandleDrag(ui::DragPhase::kLeave, mPointer, received, ui::DropEffect::kNone);
}

void Stage::SetScale(float scale) {
  mScale = scale;
  mTarget.reset();
  mTree->SetScale(scale);
}

void Stage::AdvanceTime(double milliseconds) {
  double const end = mTime + milliseconds;
  while (mWakeUp >= 0 && mWakeUp <= end) {
    mTime = std::max(mWakeUp, mTime);
    mWakeUp = -1;
    mTree->HandleTime();
  }
  mTime = end;
}

void Stage::SetPointerPosition(PointT<float> position) {
  if (mCanPlacePointer) {
    Move(position - mOrigin);
  }
}

void Stage::RequestFrame() {
  mFrameRequested = true;
  ++mFrameRequestCount;
}

void Stage::ShowToolTip(std::string_view text, PointT<float> position) {
  mToolTip = text;
  mToolTipPosition = position;
}

void Stage::PaintFrame() {
  mTree->PrepareFrame();
  mFrameRequested = false;
  auto const size = mTree->GetSize();
  if (!mTarget) {
    mTarget =
        platform::NewPaintTarget(PixelCount(size.width, mScale), PixelCount(size.height, mScale), mScale);
    mTree->AddDamage({0, 0, size.width, size.height});
  }
  mTree->PaintDamage(mTarget->BeginPaint(),
                     [&](RectT<float> const& rect) { mTarget->Clear(rect, mBackground); });
  mTarget->EndPaint();
}

platform::Pixels Stage::TakePicture(float scale) {
  mTree->PrepareFrame();
  auto const size = mTree->GetSize();
  float const before = mTree->GetScale();
  mTree->SetScale(scale);
  auto const target =
      platform::NewPaintTarget(PixelCount(size.width, scale), PixelCount(size.height, scale), scale);
  target->Clear({0, 0, size.width, size.height}, mBackground);
  mTree->PaintAll(target->BeginPaint());
  target->EndPaint();
  mTree->SetScale(before);
  return target->GetPixels();
}

platform::Pixels Stage::GetFramePixels() {
  if (!mTarget) {
    PaintFrame();
  }
  return mTarget->GetPixels();
}

}  // namespace moxui::testing
