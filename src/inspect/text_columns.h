#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// What a person sees as one character, however many code points it is made of.
struct Grapheme {
  std::string text;
  /// In a terminal: 2 for the wide characters of East Asia and for emoji.
  int columns = 1;
};

/// The text must be UTF-8.
std::vector<Grapheme> graphemesOf(std::string_view text);

int columnsOf(std::string_view text);

} // namespace tamberline
