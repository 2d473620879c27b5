#include "../passes/Attach.h"
#include "../passes/Invalidate.h"

#include <moxui/skins/SkinSet.h>
#include <moxui/skins/SkinSetClient.h>
#include <moxui/ui/UI_Node.h>

namespace moxui::ui {
namespace {

// How many clients have a custom set; without any, nobody needs to look for one above.
int gCustomSkins = 0;

}  // namespace

SkinSetClient::~SkinSetClient() {
  if (mCustomSkin != nullptr) {
    --gCustomSkins;
  }
}

skins::SkinSet const& SkinSetClient::UI_GetCurrentSkinSet() const {
  if (gCustomSkins > 0) {
    for (UI_Node const* node = &mNode; node != nullptr; node = node->UI_GetParentNode()) {
      auto const* client = dynamic_cast<SkinSetClient const*>(node);
      if (client != nullptr && client->mCustomSkin != nullptr) {
        return *client->mCustomSkin;
      }
    }
  }
  return skins::SkinSet::Get();
}

void SkinSetClient::SetCustomSkin(skins::SkinSet const& skinSet) {
  StoreSkin(&skinSet);
}

void SkinSetClient::ClearCustomSkin() {
  StoreSkin(nullptr);
}

void SkinSetClient::StoreSkin(skins::SkinSet const* skinSet) {
  if (skinSet == mCustomSkin) {
    return;
  }
  gCustomSkins += (skinSet != nullptr ? 1 : 0) - (mCustomSkin != nullptr ? 1 : 0);
  mCustomSkin = skinSet;
  // Who places its parts by the skin's sizes places them anew.
  passes::TellSkinSet(mNode);
  mNode.UI_Invalidate();
  passes::DamageSubtree(mNode);
}

}  // namespace moxui::ui
