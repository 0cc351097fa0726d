#include "base/shown_text.h"

#include "base/text.h"
#include "base/utf8.h"

#include <vector>

namespace tamberline {
namespace {

constexpr std::size_t maxUtf8Bytes = 4; // bytes of UTF-8
constexpr char32_t replacement = 0xFFFD;
constexpr char32_t ellipsis = 0x2026;

bool isWithin(char32_t character, char32_t first, char32_t last) {
  return character >= first && character <= last;
}

void appendSafeCharacters(std::string_view text, std::vector<char32_t>& characters) {
  while (!text.empty()) {
    const DecodedCharacter next = decodeFirstCharacter(text);
    const bool isSafe = next.isValid && !isUnsafeCharacter(next.codePoint);
    characters.push_back(isSafe ? next.codePoint : replacement);
    text.remove_prefix(next.length);
  }
}

/// Only the two ends of a text that is far too long, each with at least `maxCharacters`
/// characters: a name can be as long as the whole report.
std::vector<char32_t> safeCharacters(std::string_view text, std::size_t maxCharacters) {
  const std::size_t endLength = maxCharacters * maxUtf8Bytes;
  std::vector<char32_t> characters;
  if (text.size() <= 2 * endLength) {
    appendSafeCharacters(text, characters);
  } else {
    appendSafeCharacters(text.substr(0, endLength), characters);
    appendSafeCharacters(text.substr(text.size() - endLength), characters);
  }
  return characters;
}

} // namespace

bool isUnsafeCharacter(char32_t character) {
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

std::string shownText(std::string_view text, std::size_t maxCharacters) {
  std::vector<char32_t> characters = safeCharacters(trimmed(text), maxCharacters);
  if (characters.size() > maxCharacters) {
    const auto surplus = static_cast<std::ptrdiff_t>(characters.size() - maxCharacters);
    const auto middle = characters.begin() + static_cast<std::ptrdiff_t>(maxCharacters / 2);
    *characters.erase(middle, middle + surplus) = ellipsis;
  }
  std::string shown;
  for (const char32_t character : characters) {
    appendUtf8(character, shown);
  }
  return shown;
}

} // namespace tamberline
