#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// What users perceive as one character, whatever the number of code points.
struct Grapheme {
  std::string text;
  /// In a terminal: 2 for wide East Asian characters and for emoji.
  int columns = 1;
};

/// The text must be valid UTF-8.
std::vector<Grapheme> graphemesOf(std::string_view text);

int columnsOf(std::string_view text);

} // namespace tamberline
