#include "program/Appearance.h"

#include "program/NumberText.h"

#include <span>

namespace playground {
namespace {

template <class T>
struct NamedChoice {
  T value;
  std::string_view name;
};

constexpr std::array<NamedChoice<ThemeChoice>, 3> kThemes{{{ThemeChoice::kDark, "dark"},
                                                           {ThemeChoice::kLight, "light"},
                                                           {ThemeChoice::kHighContrast, "high-contrast"}}};
constexpr std::array<NamedChoice<LookChoice>, 2> kLooks{
    {{LookChoice::kClassic, "classic"}, {LookChoice::kV7, "v7"}}};

template <class T>
std::string_view NameOf(std::span<NamedChoice<T> const> list, T value) {
  for (auto const& entry : list) {
    if (entry.value == value) {
      return entry.name;
    }
  }
  return {};
}

template <class T>
std::optional<T> ByName(std::span<NamedChoice<T> const> list, std::string_view name) {
  for (auto const& entry : list) {
    if (entry.name == name) {
      return entry.value;
    }
  }
  return std::nullopt;
}

}  // namespace

std::string_view ThemeName(ThemeChoice theme) {
  return NameOf<ThemeChoice>(kThemes, theme);
}
std::string_view LookName(LookChoice look) {
  return NameOf<LookChoice>(kLooks, look);
}
std::string_view LanguageName(LanguageChoice const& language) {
  if (language == LanguageChoice::kPseudo) {
    return "pseudo";
  }
  return language.tag.empty() ? std::string_view("en") : language.tag;
}
std::optional<ThemeChoice> ThemeByName(std::string_view name) {
  return ByName<ThemeChoice>(kThemes, name);
}
std::optional<LookChoice> LookByName(std::string_view name) {
  return ByName<LookChoice>(kLooks, name);
}
std::optional<LanguageChoice> LanguageByName(std::string_view name) {
  for (LanguageChoice const& language : OfferedLanguages()) {
    if (LanguageName(language) == name) {
      return language;
    }
  }
  return std::nullopt;
}

std::vector<LanguageChoice> OfferedLanguages() {
  std::vector<LanguageChoice> languages{LanguageChoice::kEnglish, LanguageChoice::kPseudo};
  for (moxcore::Utf8String const& tag : moxcore::config::Localizer::Get().GetLanguages()) {
    if (std::string_view(tag) != LanguageChoice::kPseudo.tag) {
      languages.push_back({std::string(tag)});
    }
  }
  return languages;
}

std::optional<double> ScaleFromText(std::string_view text) {
  bool const percent = text.ends_with('%');
  auto const number = NumberFromText(percent ? text.substr(0, text.size() - 1) : text);
  if (!number) {
    return std::nullopt;
  }
  double const scale = percent ? *number / 100.0 : *number;
  if (!(scale >= kSmallestScale && scale <= kLargestScale)) {
    return std::nullopt;
  }
  return scale;
}

}  // namespace playground
