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

/// Breaks a line into several: the first at most `firstColumns` wide, the others `nextColumns`. It
/// breaks at spaces, if possible between two entries of the line (which have two spaces or a dot
/// between them). A word that is too long for any line breaks between two graphemes.
std::vector<TextLine> wrapLine(const TextLine& line, int firstColumns, int nextColumns);

} // namespace tamberline
