#pragma once

#include <moxui/geometry/ColorRGBA.h>
#include <moxui/skins/ThemeColorID.h>

#include <string_view>

namespace moxui::ui {

struct ThemePalette;

enum class ThemeID { kDark = 0, kLight = 1, kHighContrast = 2 };

/// A colour for each role of the interface. Themes are constant data that live as long as the process; which
/// one runs is changed by SetCurrentTheme.
class Theme {
 public:
  explicit constexpr Theme(ThemePalette const& palette) : mPalette(&palette) {}

  /// The running theme.
  static Theme const& Get();
  static Theme const& Get(ThemeID id);

  ThemeID GetID() const;
  /// "Dark", "Light" or "High Contrast"; not localised.
  std::string_view GetName() const;
  bool IsLight() const;

  /// Custom numbers give the client's colour in every theme; unknown numbers give the default text colour.
  ColorRGBA GetColor(ThemeColorID id) const;
  /// The gray scale, 1 to 10; other numbers are held to that range.
  ColorRGBA GetGray(int index) const;

 private:
  ThemePalette const* mPalette;
};

/// Answers which theme colours are to be taken from. Where one is asked for, null means the provider of the
/// running theme.
class ThemeProvider {
 public:
  virtual ~ThemeProvider() = default;
  virtual Theme const& GetTheme() const = 0;
  /// The theme's colour, unless the provider has another in its place.
  virtual ColorRGBA GetColor(ThemeColorID id) const;
};

/// Always answers with the theme that runs at the moment of the question.
ThemeProvider const* GetDefaultThemeProvider();
/// The provider's theme, or the running one for null.
Theme const& GetThemeOf(ThemeProvider const* provider);
/// The provider's colour, or the running theme's for null.
ColorRGBA GetColorOf(ThemeProvider const* provider, ThemeColorID id);

/// Switches the running theme. When it changes, the theme-changed functions are called after the new theme
/// answers.
void SetCurrentTheme(ThemeID id);

/// A colour of the running theme. The second form takes what UI_Node::UI_GetColorFromChangeMap gives.
ColorRGBA GetColor(ThemeColorID id);
ColorRGBA GetColor(unsigned id);

}  // namespace moxui::ui
