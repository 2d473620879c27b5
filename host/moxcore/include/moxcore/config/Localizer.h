#pragma once

#include <moxcore/messaging/Connection.h>
#include <moxcore/string/String.h>
#include <moxcore/utility/Noncopyable.h>

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace moxcore::config {

struct Catalogue;

// Gives the texts of the user interface in the language of the moment. A text is named by a literal
//
//   $$$/path/key=Default text#{comment} remark for translators
//
// whose head up to the first "=" is the key. "#{comment}" and what follows is dropped, "#{U+2022}" is that
// character, a backslash with n is a line break, and @0, @1 ... stand for values that the caller fills in
// with ReplaceInString. A text that doesn't begin with "$$$/" comes back as it stands.
//
// All operations may be called on any thread.
class Localizer : utility::noncopyable {
 public:
  static Localizer& Get();

  // The translation, else the default text.
  Utf8String GetUTF8String(std::string_view literal) const;
  Utf16String GetUTF16String(std::string_view literal) const;

  // A language that no one speaks: every text is accented and about a third longer, with its placeholders and
  // line breaks kept. It shows which texts aren't translated and which don't fit.
  static constexpr std::string_view kPseudoLanguage = "qps-ploc";

  // Adds the texts of a catalogue, as ParseCatalogue reads them, to its language; later ones win. One
  // that names no language adds nothing.
  void AddCatalogue(Catalogue const& catalogue);
  // The languages of the catalogues, in ascending order, and the pseudo-language.
  std::vector<Utf8String> GetLanguages() const;

  // Sets the language by its tag ("de", "pt-BR"). A text that "pt-BR" lacks is sought in "pt"; the empty tag
  // gives the default texts, and so does a language without catalogues.
  void SetLanguage(std::string_view tag);
  Utf8String GetLanguage() const;

  // `function` is called after each change of the language or of its texts, on the thread that changed them.
  messaging::Connection ConnectLanguageChanged(std::function<void()> function);

 private:
  Localizer();
  ~Localizer() = delete;

  struct State;
  std::unique_ptr<State> mState;
};

}  // namespace moxcore::config
