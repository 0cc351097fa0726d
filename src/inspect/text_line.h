#pragma once

#include "views/view_enums.h"

#include <string>
#include <vector>

namespace tamberline {

/// A piece of a line in one style.
struct TextSpan {
  std::string text;
  Color color = Color::Primary;
  bool isBold = false;
};

using TextLine = std::vector<TextSpan>;

/// A line as several that are at most so many columns wide: the first, and every one after it.
/// It breaks at spaces, where it can between two entries of the line (two spaces or a dot apart); a
/// word that is too long for any line breaks between two graphemes.
std::vector<TextLine> wrapLine(const TextLine& line, int firstColumns, int nextColumns);

} // namespace tamberline
