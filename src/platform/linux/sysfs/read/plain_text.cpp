#include "platform/linux/sysfs/read/plain_text.h"

#include "base/text.h"
#include "base/utf8.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace tamberline::sysfs {
namespace {

constexpr char32_t replacement = 0xFFFD;

bool isControl(char32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

/// XML allows neither of these two, not even as character references.
bool isInvalidXmlCharacter(char32_t codePoint) {
  return codePoint == 0xFFFE || codePoint == 0xFFFF;
}

/// Replaces each `prefix` and the `digitCount` digits after it with the byte that they encode.
std::string withoutEscapes(std::string_view text, std::string_view prefix, std::size_t digitCount,
                           int base) {
  std::string plain;
  while (!text.empty()) {
    unsigned value = 0;
    const std::size_t length = prefix.size() + digitCount;
    const bool isEscape = text.starts_with(prefix) && text.size() >= length;
    const char* digits = text.data() + prefix.size();
    const auto [end, error] = isEscape ? std::from_chars(digits, digits + digitCount, value, base)
                                       : std::from_chars_result{digits, std::errc()};
    if (isEscape && error == std::errc() && end == digits + digitCount && value <= 0xFF) {
      plain += static_cast<char>(value);
      text.remove_prefix(length);
    } else {
      plain += text.front();
      text.remove_prefix(1);
    }
  }
  return plain;
}

} // namespace

std::string plainText(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const DecodedCharacter character = decodeFirstCharacter(bytes);
    if (!character.isValid || isInvalidXmlCharacter(character.codePoint)) {
      appendUtf8(replacement, text);
    } else if (isControl(character.codePoint)) {
      text += ' ';
    } else {
      text.append(bytes.substr(0, character.length));
    }
    bytes.remove_prefix(character.length);
  }
  return std::string(trimmed(text));
}

std::string withoutHexEscapes(std::string_view text) {
  return withoutEscapes(text, "\\x", 2, 16);
}

std::string withoutOctalEscapes(std::string_view text) {
  return withoutEscapes(text, "\\", 3, 8);
}

} // namespace tamberline::sysfs
