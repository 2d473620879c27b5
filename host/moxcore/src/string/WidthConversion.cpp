#include <moxcore/string/TextOperations.h>

namespace moxcore::string {

namespace {

char16_t Narrow(char16_t unit) noexcept {
  if (unit >= 0xff01 && unit <= 0xff5e) {
    return static_cast<char16_t>(unit - 0xfee0);
  }
  switch (unit) {
    case 0x3000:  // ideographic space
      return u' ';
    case 0x3001:  // ideographic comma
    case 0xff64:  // its half-width form
      return u',';
    case 0x3002:  // ideographic full stop
    case 0xff61:  // its half-width form
      return u'.';
    case 0x2212:  // minus sign
    case 0x30fc:  // prolonged sound mark
    case 0xff70:  // its half-width form
      return u'-';
    default:
      return unit;
  }
}

}  // namespace

void ConvertFullWidthAndIdeographicCharacters(Utf16String& text) {
  for (auto& unit : text) {
    unit = Narrow(unit);
  }
}

}  // namespace moxcore::string
