#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamberline {

struct DecodedCharacter {
  char32_t codePoint = 0;
  std::size_t length = 1; // in bytes; 1 if invalid
  bool isValid = false;
};

/// The first character of a text, which must not be empty.
DecodedCharacter decodeFirstCharacter(std::string_view text);

void appendUtf8(char32_t codePoint, std::string& text);

/// Whether the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
bool isValidUtf8(std::string_view bytes);

} // namespace tamberline
