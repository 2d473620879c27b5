#pragma once

#include <moxcore/string/String.h>
#include <moxui/geometry/ColorRGBA.h>
#include <moxui/skins/SkinSet.h>
#include <moxui/skins/Theme.h>
#include <moxui/skins/ThemeColorID.h>
#include <moxui/skins/ThemeFont.h>

namespace moxui::ui {

class UI_Node;

enum class ThemeStringID { kThemeName = 0, kTextFontName = 1, kSmallFontName = 2, kTitleFontName = 3 };

/// What takes its colours and fonts from a theme, and may give itself and its descendants others. A companion
/// of all views, and the provider that they are drawn with.
class ThemeClient : public ThemeProvider {
 public:
  ~ThemeClient() override;
  ThemeClient(ThemeClient const&) = delete;
  ThemeClient& operator=(ThemeClient const&) = delete;

  Theme const& UI_GetCurrentTheme() const;
  Theme const& GetTheme() const override { return UI_GetCurrentTheme(); }

  /// The running theme's own colour, whatever was customised.
  ColorRGBA GetThemeColor(ThemeColorID id) const;
  /// The colour after the custom ones of this node and those above it (UI_GetColorFromChangeMap).
  ColorRGBA GetColor(ThemeColorID id) const override;
  /// Gives a role another colour, or that of another role, here and below.
  void SetCustomThemeColor(ThemeColorID id, ColorRGBA const& colour);
  void SetCustomThemeColor(ThemeColorID id, ThemeColorID replacement);
  void ClearCustomThemeColor(ThemeColorID id);

  /// Sizes of the running look.
  float GetNumber(skins::SkinNumber number) const;
  moxcore::Utf8String GetString(ThemeStringID id) const;

  moxcore::Utf8String GetThemeFontName(FontIndex index) const;
  /// The custom size of this node, else of the nearest above it that has one, else the theme's.
  float GetThemeFontSize(FontIndex index) const;
  /// A size in logical pixels for all theme fonts, here and below. Sizes that aren't above 0 clear it.
  void SetCustomFontSize(float size);
  void ClearCustomFontSize();

 protected:
  explicit ThemeClient(UI_Node& node) : mNode(node) {}

 private:
  UI_Node& mNode;
  float mCustomFontSize = 0.0f;
};

}  // namespace moxui::ui
