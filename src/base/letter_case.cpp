#include "base/letter_case.h"

#include "base/utf8.h"

#include <cwctype>
// POSIX, not C++: newlocale and the functions that take a locale.
#include <locale.h> // NOLINT(modernize-deprecated-headers)
#if __has_include(<xlocale.h>)
#include <xlocale.h>
#endif

namespace tamberline {
namespace {

/// The system's character table, independent of the process's locale. ASCII only if there is none.
locale_t characterTable() {
  static const locale_t table = [] {
    for (const char* name : {"C.UTF-8", "en_US.UTF-8", "C"}) {
      if (locale_t found = newlocale(LC_CTYPE_MASK, name, nullptr)) {
        return found;
      }
    }
    return locale_t{};
  }();
  return table;
}

char32_t lowerCase(char32_t character) {
  return static_cast<char32_t>(towlower_l(static_cast<wint_t>(character), characterTable()));
}

char32_t upperCase(char32_t character) {
  return static_cast<char32_t>(towupper_l(static_cast<wint_t>(character), characterTable()));
}

/// The text with each character replaced by `map(character, isFirstOfWord)`.
template <typename Map>
std::string mapped(std::string_view text, Map map) {
  std::string result;
  result.reserve(text.size());
  bool isFirstOfWord = true;
  while (!text.empty()) {
    const DecodedCharacter next = decodeFirstCharacter(text);
    if (next.isValid) {
      appendUtf8(map(next.codePoint, isFirstOfWord), result);
    } else {
      result += text.substr(0, next.length);
    }
    isFirstOfWord = text.starts_with(' ');
    text.remove_prefix(next.length);
  }
  return result;
}

} // namespace

std::string lowerCased(std::string_view text) {
  return mapped(text, [](char32_t character, bool) { return lowerCase(character); });
}

std::string titleCased(std::string_view text) {
  return mapped(text, [](char32_t character, bool isFirstOfWord) {
    return isFirstOfWord ? upperCase(character) : lowerCase(character);
  });
}

} // namespace tamberline
