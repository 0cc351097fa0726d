#pragma once

#include "inspect/text_line.h"

#include <vector>

namespace tamberline {

/// A line as several that are at most so many columns wide: the first, and every one after it.
/// It breaks at spaces, where it can between two entries of the line (two spaces or a dot apart); a
/// word that is too long for any line breaks between two graphemes.
std::vector<TextLine> wrapLine(const TextLine& line, int firstColumns, int nextColumns);

} // namespace tamberline
