#pragma once

namespace moxui::skins {
class SkinSet;
}

namespace moxui::ui {

class UI_Node;

/// What is painted by a skin set: the running look's, unless this node or one above it has another. A
/// companion of all views.
class SkinSetClient {
 public:
  SkinSetClient(SkinSetClient const&) = delete;
  SkinSetClient& operator=(SkinSetClient const&) = delete;

  skins::SkinSet const& UI_GetCurrentSkinSet() const;
  /// A set for this node and those below it; it must live as long as they do.
  void SetCustomSkin(skins::SkinSet const& skinSet);
  void ClearCustomSkin();

 protected:
  explicit SkinSetClient(UI_Node& node) : mNode(node) {}
  ~SkinSetClient();

 private:
  void StoreSkin(skins::SkinSet const* skinSet);

  UI_Node& mNode;
  skins::SkinSet const* mCustomSkin = nullptr;
};

}  // namespace moxui::ui
