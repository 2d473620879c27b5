#include "../passes/Invalidate.h"
#include "../ui/NodeAccess.h"
#include "CustomColors.h"

#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeClient.h>
#include <moxui/ui/UI_Node.h>

namespace moxui::ui {
namespace {

// How many clients have a custom font size; without any, nobody needs to look for one above.
int gCustomFontSizes = 0;

// What is below shows it too, wherever it lies.
void RepaintSubtree(UI_Node& node) {
  node.UI_Invalidate();
  passes::DamageSubtree(node);
}

bool HasColorChange(UI_Node const& node, unsigned id, unsigned replacement) {
  auto const* const extras = NodeAccess::Extras(node);
  if (extras == nullptr) {
    return false;
  }
  auto const change = extras->colorChanges.find(id);
  return change != extras->colorChanges.end() && change->second.Get() == replacement;
}

}  // namespace

ThemeClient::~ThemeClient() {
  if (mCustomFontSize > 0.0f) {
    --gCustomFontSizes;
  }
}

Theme const& ThemeClient::UI_GetCurrentTheme() const {
  return Theme::Get();
}

ColorRGBA ThemeClient::GetThemeColor(ThemeColorID id) const {
  return UI_GetCurrentTheme().GetColor(id);
}

ColorRGBA ThemeClient::GetColor(ThemeColorID id) const {
  return ui::GetColor(mNode.UI_GetColorFromChangeMap(static_cast<unsigned>(id)));
}

void ThemeClient::SetCustomThemeColor(ThemeColorID id, ColorRGBA const& colour) {
  SetCustomThemeColor(id, GetCustomColorID(colour));
}

void ThemeClient::SetCustomThemeColor(ThemeColorID id, ThemeColorID replacement) {
  if (HasColorChange(mNode, static_cast<unsigned>(id), static_cast<unsigned>(replacement))) {
    return;
  }
  mNode.UI_SetColorChange(static_cast<unsigned>(id), static_cast<unsigned>(replacement));
  RepaintSubtree(mNode);
}

void ThemeClient::ClearCustomThemeColor(ThemeColorID id) {
  mNode.UI_ClearColorChange(static_cast<unsigned>(id));
  RepaintSubtree(mNode);
}

float ThemeClient::GetNumber(skins::SkinNumber number) const {
  return skins::SkinSet::Get().GetNumber(number);
}

moxcore::Utf8String ThemeClient::GetString(ThemeStringID id) const {
  switch (id) {
    case ThemeStringID::kThemeName:
      return moxcore::Utf8String(UI_GetCurrentTheme().GetName());
    case ThemeStringID::kTextFontName:
      return GetThemeFontName(FontIndex::kText);
    case ThemeStringID::kSmallFontName:
      return GetThemeFontName(FontIndex::kSmall);
    case ThemeStringID::kTitleFontName:
      return GetThemeFontName(FontIndex::kTitle);
  }
  return {};
}

moxcore::Utf8String ThemeClient::GetThemeFontName(FontIndex index) const {
  return GetFontName(index);
}

float ThemeClient::GetThemeFontSize(FontIndex index) const {
  if (gCustomFontSizes > 0) {
    for (UI_Node const* node = &mNode; node != nullptr; node = node->UI_GetParentNode()) {
      auto const* client = dynamic_cast<ThemeClient const*>(node);
      if (client != nullptr && client->mCustomFontSize > 0.0f) {
        return client->mCustomFontSize;
      }
    }
  }
  return GetFontSize(index);
}

void ThemeClient::SetCustomFontSize(float size) {
  float const wanted = size > 0.0f ? size : 0.0f;
  if (wanted == mCustomFontSize) {
    return;
  }
  gCustomFontSizes += (wanted > 0.0f ? 1 : 0) - (mCustomFontSize > 0.0f ? 1 : 0);
  mCustomFontSize = wanted;
  RepaintSubtree(mNode);
}

void ThemeClient::ClearCustomFontSize() {
  SetCustomFontSize(0.0f);
}

}  // namespace moxui::ui
