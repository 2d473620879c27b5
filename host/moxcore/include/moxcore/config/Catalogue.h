#pragma once

#include <moxcore/string/String.h>

#include <cstddef>
#include <map>
#include <string_view>
#include <vector>

namespace moxcore::config {

// The texts of one language as translators' tools keep them: a gettext file (.po), UTF-8, where
//
//   msgctxt "$$$/path/key"
//   msgid "Default text"
//   msgstr "Translation"
//
// is one text; a file without contexts may have the key as its msgid. The language is the header's
// "Language:" line. Untranslated and fuzzy entries are left out.
struct Catalogue {
  Utf8String language;
  // Translations by key, the head of a literal without "=".
  std::map<Utf8String, Utf8String, std::less<>> texts;
  // What isn't as it should be, with its line; reading goes on behind it.
  struct Problem {
    std::size_t line;
    Utf8String text;
  };
  std::vector<Problem> problems;
};

inline constexpr std::size_t kMaximalCatalogueBytes = std::size_t{64} << 20;
inline constexpr std::size_t kMaximalCatalogueProblems = 100;

// Never fails: whatever can be read is in the result. A text beyond kMaximalCatalogueBytes is a problem and
// nothing else.
Catalogue ParseCatalogue(std::string_view text);

}  // namespace moxcore::config
