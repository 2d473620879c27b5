#include <moxui/skins/ControlState.h>
#include <moxui/skins/DrawButtonParameters.h>
#include <moxui/skins/SkinSet.h>

#include <utility>

namespace moxui::skins {

DrawButtonParameters::DrawButtonParameters() : mSkinSet(&SkinSet::Get()) {
  mCornerRadius = mSkinSet->GetNumber(SkinNumber::kCornerRadius);
}

DrawButtonParameters::DrawButtonParameters(ButtonComponents const& components, Flags<unsigned int> state)
    : DrawButtonParameters() {
  mComponents = components;
  mState = state;
}

void DrawButtonParameters::SetDefaults() {
  DrawButtonParameters defaults;
  defaults.mRect = mRect;
  defaults.mFace = mFace;
  defaults.mTheme = mTheme;
  defaults.mSkinSet = mSkinSet;
  defaults.mCornerRadius = mSkinSet->GetNumber(SkinNumber::kCornerRadius);
  *this = std::move(defaults);
}

bool DrawButtonParameters::ShowsContainer() const {
  Interaction const interaction = GetInteraction(mState);
  bool const isActive = interaction == Interaction::kHover || interaction == Interaction::kPressed;
  return mDrawContainer && (!mComponents.IsQuiet() || isActive || HasSelectedAppearance());
}

void DrawButtonParameters::SetDrawButtonFace(moxcore::utility::IntrusivePtr<DrawButtonFace> face) {
  mFace = std::move(face);
}

}  // namespace moxui::skins
