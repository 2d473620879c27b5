#include "LocalizedText.h"

#include <moxcore/config/Catalogue.h>
#include <moxcore/config/Localizer.h>
#include <moxcore/messaging/Signal.h>
#include <moxcore/string/Encoding.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>
#include <utility>

namespace moxcore::config {

namespace {

struct HashText {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>()(text); }
};

using Texts = std::unordered_map<Utf8String, Utf8String, HashText, std::equal_to<>>;

// "pt_BR" is written "pt-BR".
Utf8String NormalisedTag(std::string_view tag) {
  Utf8String result(tag);
  std::ranges::replace(result, '_', '-');
  return result;
}

}  // namespace

struct Localizer::State {
  mutable std::shared_mutex mutex;
  std::map<Utf8String, Texts, std::less<>> languages;
  Utf8String language;
  messaging::Signal<void(), 1> changed;

  // Decoded at once, since catalogues are read seldom and texts often.
  Utf8String Translation(LocalizedLiteral const& literal) const {
    for (std::string_view tag = language; !tag.empty();) {
      if (auto const texts = languages.find(tag); texts != languages.end()) {
        if (auto const found = texts->second.find(literal.key); found != texts->second.end()) {
          return found->second;
        }
      }
      auto const dash = tag.rfind('-');
      tag = dash == std::string_view::npos ? std::string_view() : tag.substr(0, dash);
    }
    auto text = DecodeText(literal.text);
    return language == kPseudoLanguage ? PseudoTranslate(text) : text;
  }
};

Localizer::Localizer() : mState(std::make_unique<State>()) {}

Localizer& Localizer::Get() {
  static auto* const localizer = new Localizer;
  return *localizer;
}

Utf8String Localizer::GetUTF8String(std::string_view literal) const {
  auto const parts = SplitLiteral(literal);
  if (parts.key.empty()) {
    return Utf8String(literal);
  }
  std::shared_lock const lock(mState->mutex);
  return mState->Translation(parts);
}

Utf16String Localizer::GetUTF16String(std::string_view literal) const {
  return string::UTF8to16(GetUTF8String(literal));
}

void Localizer::AddCatalogue(Catalogue const& catalogue) {
  if (catalogue.language.empty()) {
    return;
  }
  {
    std::lock_guard const lock(mState->mutex);
    auto& texts = mState->languages[NormalisedTag(catalogue.language)];
    for (auto const& [key, text] : catalogue.texts) {
      texts.insert_or_assign(key, DecodeText(text));
    }
  }
  mState->changed.Fire();
}

std::vector<Utf8String> Localizer::GetLanguages() const {
  std::vector<Utf8String> result;
  {
    std::shared_lock const lock(mState->mutex);
    for (auto const& [language, texts] : mState->languages) {
      result.push_back(language);
    }
  }
  result.emplace_back(kPseudoLanguage);
  return result;
}

void Localizer::SetLanguage(std::string_view tag) {
  auto language = NormalisedTag(tag);
  {
    std::lock_guard const lock(mState->mutex);
    if (language == mState->language) {
      return;
    }
    mState->language = std::move(language);
  }
  mState->changed.Fire();
}

Utf8String Localizer::GetLanguage() const {
  std::shared_lock const lock(mState->mutex);
  return mState->language;
}

messaging::Connection Localizer::ConnectLanguageChanged(std::function<void()> function) {
  return mState->changed.Connect(std::move(function));
}

}  // namespace moxcore::config
