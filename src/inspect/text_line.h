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

} // namespace tamberline
