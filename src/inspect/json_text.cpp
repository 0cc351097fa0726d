#include "inspect/json_text.h"

#include "base/shown_text.h"
#include "base/utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>

namespace tamberline {
namespace {

constexpr unsigned char firstCheckedByte = 0x7F; // the library escapes control characters below it

std::size_t lengthOfPlainStart(std::string_view text) {
  const auto isPlain = [](char character) {
    return static_cast<unsigned char>(character) < firstCheckedByte;
  };
  const auto* const end = std::find_if_not(text.begin(), text.end(), isPlain);
  return static_cast<std::size_t>(end - text.begin());
}

/// The joiners of emoji and of scripts may be shown on screen, but in JSON they are invisible.
bool isEscaped(char32_t character) {
  return isUnsafeCharacter(character) || character == 0x200C || character == 0x200D;
}

void appendUnit(unsigned unit, std::string& text) {
  std::array<char, 7> escape{};
  std::snprintf(escape.data(), escape.size(), "\\u%04x", unit & 0xFFFFU);
  text += escape.data();
}

void appendCharacter(std::string_view bytes, char32_t character, std::string& text) {
  if (!isEscaped(character)) {
    text += bytes;
  } else if (character < 0x10000) {
    appendUnit(character, text);
  } else {
    const char32_t beyond = character - 0x10000;
    appendUnit(0xD800 + (beyond >> 10U), text);
    appendUnit(0xDC00 + (beyond & 0x3FFU), text);
  }
}

} // namespace

std::string jsonText(const nlohmann::ordered_json& document, int indent) {
  const std::string written =
      document.dump(indent, ' ', /*ensure_ascii=*/false, nlohmann::json::error_handler_t::replace);
  std::string text;
  text.reserve(written.size());
  // Only strings contain such characters, so the whole output can be treated alike.
  for (std::string_view rest = written; !rest.empty();) {
    const std::size_t plain = lengthOfPlainStart(rest);
    text += rest.substr(0, plain);
    rest.remove_prefix(plain);
    if (!rest.empty()) {
      const DecodedCharacter next = decodeFirstCharacter(rest);
      appendCharacter(rest.substr(0, next.length), next.codePoint, text);
      rest.remove_prefix(next.length);
    }
  }
  return text;
}

} // namespace tamberline
