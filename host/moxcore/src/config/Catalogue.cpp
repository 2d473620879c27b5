#include <moxcore/config/Catalogue.h>
#include <moxcore/string/Encoding.h>

#include <cstddef>
#include <optional>
#include <utility>

namespace moxcore::config {

namespace {

// Well-formed UTF-8 whatever the file holds.
Utf8String Repaired(std::string_view text) {
  Utf8String result;
  result.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    string::AppendCharacter(result, string::NextCharacter(text, position));
  }
  return result;
}

std::string_view WithoutSpace(std::string_view text) {
  auto const first = text.find_first_not_of(" \t\r");
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

char Unescaped(char escaped) noexcept {
  switch (escaped) {
    case 'n':
      return '\n';
    case 't':
      return '\t';
    case 'r':
      return '\r';
    default:  // \" \\ and what isn't an escape
      return escaped;
  }
}

// The contents of a quoted string; nothing if it isn't one whole.
std::optional<Utf8String> Unquoted(std::string_view text) {
  if (text.size() < 2 || text.front() != '"') {
    return std::nullopt;
  }
  Utf8String result;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '"') {
      return i + 1 == text.size() ? std::optional(result) : std::nullopt;
    }
    if (text[i] == '\\' && i + 1 < text.size()) {
      result.push_back(Unescaped(text[++i]));
    } else {
      result.push_back(text[i]);
    }
  }
  return std::nullopt;
}

Utf8String HeaderField(std::string_view header, std::string_view name) {
  while (!header.empty()) {
    auto const end = header.find('\n');
    auto const line = header.substr(0, end);
    if (line.starts_with(name)) {
      return Utf8String(WithoutSpace(line.substr(name.size())));
    }
    header = end == std::string_view::npos ? std::string_view() : header.substr(end + 1);
  }
  return {};
}

class CatalogueReader {
 public:
  Catalogue Read(std::string_view text) {
    if (text.size() > kMaximalCatalogueBytes) {
      Report("the catalogue is too large");
      return std::move(mResult);
    }
    if (text.starts_with("\xef\xbb\xbf")) {
      text.remove_prefix(3);
    }
    while (!text.empty()) {
      ++mLine;
      auto const end = text.find('\n');
      ReadLine(WithoutSpace(text.substr(0, end)));
      text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    FinishEntry();
    if (mResult.language.empty()) {
      Report("the header names no language");
    }
    return std::move(mResult);
  }

 private:
  struct Entry {
    Utf8String context;
    Utf8String id;
    Utf8String translation;
    Utf8String ignored;  // plurals, which no text of ours has
    bool hasID = false;
    bool hasTranslation = false;
    bool isFuzzy = false;
    bool isBroken = false;
  };

  void ReadLine(std::string_view line) {
    if (line.empty() || line.starts_with("#~")) {
      return;
    }
    if (line.starts_with('#')) {
      BeginEntryIfComplete();
      mEntry.isFuzzy |= line.starts_with("#,") && line.find("fuzzy") != std::string_view::npos;
      return;
    }
    if (line.starts_with('"')) {
      Append(line);
      return;
    }
    auto const keyword = line.substr(0, line.find_first_of(" \t\""));
    Begin(keyword);
    Append(WithoutSpace(line.substr(keyword.size())));
  }

  void Begin(std::string_view keyword) {
    mField = nullptr;
    if (keyword == "msgctxt") {
      BeginEntryIfComplete();
      mField = &mEntry.context;
    } else if (keyword == "msgid") {
      BeginEntryIfComplete();
      mEntry.hasID = true;
      mField = &mEntry.id;
    } else if (keyword == "msgstr" || keyword == "msgstr[0]") {
      mEntry.hasTranslation = true;
      mField = &mEntry.translation;
    } else if (keyword == "msgid_plural" || keyword.starts_with("msgstr[")) {
      mField = &mEntry.ignored;
    }
  }

  void Append(std::string_view quoted) {
    auto const text = Unquoted(quoted);
    if (mField == nullptr || !text) {
      mEntry.isBroken = true;
      Report("not a line of a catalogue");
      return;
    }
    mField->append(*text);
  }

  // A comment, a context or an id behind a translation belong to the next entry.
  void BeginEntryIfComplete() {
    if (mEntry.hasTranslation || (mEntry.hasID && mField == nullptr)) {
      FinishEntry();
    }
  }

  void FinishEntry() {
    auto const entry = std::exchange(mEntry, Entry());
    mField = nullptr;
    if (entry.isBroken || entry.translation.empty()) {
      return;
    }
    // Tools mark the header of a new file as fuzzy: its language counts all the same.
    bool const isHeader = entry.id.empty() && entry.context.empty();
    if (entry.isFuzzy && !isHeader) {
      return;
    }
    if (isHeader) {
      mResult.language = HeaderField(entry.translation, "Language:");
      return;
    }
    auto const& head = entry.context.empty() ? entry.id : entry.context;
    auto const key = std::string_view(head).substr(0, head.find('='));
    if (!key.starts_with("$$$/")) {
      Report("a text without a key");
      return;
    }
    mResult.texts.insert_or_assign(Repaired(key), Repaired(entry.translation));
  }

  void Report(std::string_view text) {
    if (mResult.problems.size() < kMaximalCatalogueProblems) {
      mResult.problems.push_back({mLine, Utf8String(text)});
    }
  }

  Catalogue mResult;
  Entry mEntry;
  Utf8String* mField = nullptr;
  std::size_t mLine = 0;
};

}  // namespace

Catalogue ParseCatalogue(std::string_view text) {
  return CatalogueReader().Read(text);
}

}  // namespace moxcore::config
