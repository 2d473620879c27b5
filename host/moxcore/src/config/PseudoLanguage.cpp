#include "LocalizedText.h"

#include <moxcore/string/Encoding.h>

namespace moxcore::config {

namespace {

// For "A" to "Z", then "a" to "z".
constexpr std::u16string_view kAccentedCapitals = u"ÅƁÇÐÉƑĜĤÎĴĶĻṀÑÕÞǪŔŠŢÛṼŴẊÝŽ";
constexpr std::u16string_view kAccentedSmall = u"åƀçðéƒĝĥîĵķļɱñõþǫŕšţûṽŵẋýž";
static_assert(kAccentedCapitals.size() == 26 && kAccentedSmall.size() == 26);

// What lines are lengthened with: words, so that they break like any text.
constexpr std::u16string_view kFiller = u" ţŵõ ţĥŕéé ƒõûŕ ƒîṽé";

char32_t Accented(char32_t character) noexcept {
  if (character >= 'A' && character <= 'Z') {
    return kAccentedCapitals[character - 'A'];
  }
  if (character >= 'a' && character <= 'z') {
    return kAccentedSmall[character - 'a'];
  }
  return character;
}

void AppendLine(Utf8String& result, std::string_view line) {
  std::size_t characters = 0;
  for (std::size_t position = 0; position < line.size(); ++characters) {
    string::AppendCharacter(result, Accented(string::NextCharacter(line, position)));
  }
  // Rounded to the nearest of 35 %; a line of one character gets one more.
  auto const extra = characters == 0 ? 0 : characters < 3 ? 1 : (characters * 35 + 50) / 100;
  for (std::size_t i = 0; i < extra; ++i) {
    auto const filler = kFiller[i % kFiller.size()];
    // No space at the end, where trimming or wrapping would lose it.
    string::AppendCharacter(result, filler == u' ' && i + 1 == extra ? u'~' : filler);
  }
}

}  // namespace

Utf8String PseudoTranslate(std::string_view text) {
  Utf8String result;
  result.reserve(text.size() * 3);
  for (;;) {
    auto const end = text.find('\n');
    AppendLine(result, text.substr(0, end));
    if (end == std::string_view::npos) {
      return result;
    }
    result.push_back('\n');
    text.remove_prefix(end + 1);
  }
}

}  // namespace moxcore::config
