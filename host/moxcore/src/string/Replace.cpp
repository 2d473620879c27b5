#include <moxcore/string/TextOperations.h>

#include <utility>

namespace moxcore::string {

namespace {

template <class Text, class View>
std::size_t Replace(Text& text, View what, View by) {
  auto found = what.empty() ? Text::npos : text.find(what);
  if (found == Text::npos) {
    return 0;
  }
  Text result;
  std::size_t count = 0;
  std::size_t copied = 0;
  for (; found != Text::npos; found = text.find(what, copied)) {
    result.append(text, copied, found - copied);
    result.append(by);
    copied = found + what.size();
    ++count;
  }
  result.append(text, copied);
  text = std::move(result);
  return count;
}

}  // namespace

std::size_t ReplaceInString(Utf8String& text, std::string_view what, std::string_view by) {
  return Replace(text, what, by);
}

std::size_t ReplaceInString(Utf16String& text, std::u16string_view what, std::u16string_view by) {
  return Replace(text, what, by);
}

}  // namespace moxcore::string
