#pragma once

#include "views/colors.h"

#include <string>
#include <vector>

namespace tamberline {

/// A piece of a line in one style.
struct TextSpan {
  std::string text;
  Color color = Color::primary;
  bool isBold = false;
};

using TextLine = std::vector<TextSpan>;

/// An entry of an indented tree: its lines, the first of them at the connector, and what is below.
struct TextTree {
  std::vector<TextLine> lines;
  std::vector<TextTree> children;
};

/// The entries one below the other, a blank line between them, with box-drawing connectors for
/// everything below; in the terminal's colours when `useColors`.
std::string renderTextTrees(const std::vector<TextTree>& trees, bool useColors);

} // namespace tamberline
