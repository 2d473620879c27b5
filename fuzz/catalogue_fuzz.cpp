// Reads bytes as a catalogue of translations, and as a literal of the user interface.
#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/string/Encoding.h>
#include <moxcore/string/TextOperations.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using namespace moxcore;

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

bool IsWellFormed(Utf8String const& text) {
  return string::UTF16to8(string::UTF8to16(text)) == text;
}

void CheckCatalogue(config::Catalogue const& catalogue) {
  Require(catalogue.problems.size() <= config::kMaximalCatalogueProblems);
  for (auto const& [key, text] : catalogue.texts) {
    Require(key.starts_with("$$$/") && key.find('=') == Utf8String::npos);
    Require(!text.empty() && IsWellFormed(key) && IsWellFormed(text));
  }
}

void CheckText(std::string_view bytes) {
  auto wide = string::UTF8to16(bytes);
  Require(string::UTF8to16(string::UTF16to8(wide)) == wide);
  auto const length = wide.size();
  string::ToUpperCase(wide);
  string::ConvertFullWidthAndIdeographicCharacters(wide);
  Require(wide.size() == length);
  string::LeftTrim(wide);
  string::RightTrim(wide);
  Utf8String narrow(bytes);
  string::RightTrim(narrow);
  string::LeftTrim(narrow);
  Require(narrow.size() <= bytes.size());
}

void CheckLiteral(std::string_view bytes) {
  auto& localizer = config::Localizer::Get();
  for (auto const language : {std::string_view(), config::Localizer::kPseudoLanguage}) {
    localizer.SetLanguage(language);
    auto const text = localizer.GetUTF8String(bytes);
    Require(bytes.starts_with("$$$/") || text == bytes);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view const bytes(reinterpret_cast<char const*>(data), size);
  CheckCatalogue(config::ParseCatalogue(bytes));
  CheckText(bytes);
  CheckLiteral(bytes);
  return 0;
}
