#include "base/shown_text.h"

#include "base/text.h"
#include "base/utf8.h"

#include <vector>

namespace tamberline {
namespace {

constexpr std::size_t longestCharacter = 4; // bytes of UTF-8
constexpr char32_t replacement = 0xFFFD;
constexpr char32_t ellipsis = 0x2026;

bool isWithin(char32_t character, char32_t first, char32_t last) {
  return character >= first && character <= last;
}

void appendHarmlessCharacters(std::string_view text, std::vector<char32_t>& characters) {
  while (!text.empty()) {
    const DecodedCharacter next = decodeFirstCharacter(text);
    const bool isHarmless = next.isValid && !disturbsTheReader(next.codePoint);
    characters.push_back(isHarmless ? next.codePoint : replacement);
    text.remove_prefix(next.length);
  }
}

/// Only the two ends of a text that is far too long, each with at least `mostCharacters`
/// characters: a name can be as long as the whole report.
std::vector<char32_t> harmlessCharacters(std::string_view text, std::size_t mostCharacters) {
  const std::size_t endLength = mostCharacters * longestCharacter;
  std::vector<char32_t> characters;
  if (text.size() <= 2 * endLength) {
    appendHarmlessCharacters(text, characters);
  } else {
    appendHarmlessCharacters(text.substr(0, endLength), characters);
    appendHarmlessCharacters(text.substr(text.size() - endLength), characters);
  }
  return characters;
}

} // namespace

bool disturbsTheReader(char32_t character) {
  const bool isControl = character < 0x20 || isWithin(character, 0x7F, 0x9F);
  const bool isSeparator = isWithin(character, 0x2028, 0x2029);
  const bool turnsDirection = character == 0x061C || isWithin(character, 0x200E, 0x200F) ||
                              isWithin(character, 0x202A, 0x202E) ||
                              isWithin(character, 0x2066, 0x2069);
  // Zero-width characters can hide parts of a name. The joiners of emoji and of scripts stay.
  const bool isInvisible = character == 0x00AD || character == 0x200B || character == 0xFEFF ||
                           isWithin(character, 0x2060, 0x2064) ||
                           isWithin(character, 0xE0000, 0xE007F);
  return isControl || isSeparator || turnsDirection || isInvisible;
}

std::string shownText(std::string_view text, std::size_t mostCharacters) {
  std::vector<char32_t> characters = harmlessCharacters(trimmed(text), mostCharacters);
  if (characters.size() > mostCharacters) {
    const auto surplus = static_cast<std::ptrdiff_t>(characters.size() - mostCharacters);
    const auto middle = characters.begin() + static_cast<std::ptrdiff_t>(mostCharacters / 2);
    *characters.erase(middle, middle + surplus) = ellipsis;
  }
  std::string shown;
  for (const char32_t character : characters) {
    appendUtf8(character, shown);
  }
  return shown;
}

} // namespace tamberline
