#pragma once

#include <moxcore/config/Localizer.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace playground {

enum class ThemeChoice { kDark, kLight, kHighContrast };
enum class LookChoice { kClassic, kV7 };
// A language by its tag; English, in which the texts are written, has an empty one.
struct LanguageChoice {
  std::string tag;

  static const LanguageChoice kEnglish;
  static const LanguageChoice kPseudo;

  bool operator==(LanguageChoice const&) const = default;
};
inline const LanguageChoice LanguageChoice::kEnglish{};
inline const LanguageChoice LanguageChoice::kPseudo{std::string(moxcore::config::Localizer::kPseudoLanguage)};

inline constexpr double kSmallestScale = 0.5;
inline constexpr double kLargestScale = 4.0;
// The scales that the window offers; the command line takes any between the two bounds.
inline constexpr std::array<double, 4> kOfferedScales{1.0, 1.25, 1.5, 2.0};

// How everything in the program looks. `scale` multiplies the device scale of the screen.
struct Appearance {
  ThemeChoice theme = ThemeChoice::kDark;
  LookChoice look = LookChoice::kV7;
  LanguageChoice language;
  bool rightToLeft = false;
  double scale = 1.0;

  bool operator==(Appearance const&) const = default;
};

// The names on the command line and in the settings file, and back; nothing for an unknown name.
std::string_view ThemeName(ThemeChoice theme);
std::string_view LookName(LookChoice look);
std::string_view LanguageName(LanguageChoice const& language);
std::optional<ThemeChoice> ThemeByName(std::string_view name);
std::optional<LookChoice> LookByName(std::string_view name);
std::optional<LanguageChoice> LanguageByName(std::string_view name);
// English, the pseudo-language, and those of which there are translations.
std::vector<LanguageChoice> OfferedLanguages();
// A factor such as "1.25" or a percentage such as "125%", within the bounds above.
std::optional<double> ScaleFromText(std::string_view text);

}  // namespace playground
