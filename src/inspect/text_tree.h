#pragma once

#include "inspect/text_line.h"

#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// An entry of an indented tree: its lines, the first one at the connector, and the entries below.
struct TextTree {
  std::vector<TextLine> lines;
  std::vector<TextTree> children;
};

/// The entries one below the other, separated by a blank line, with box-drawing connectors for
/// everything below them; with the terminal's colours if `useColors`. A line longer than `columns`
/// is wrapped with a small extra indentation, and the connectors continue beside it. A deep entry
/// always has a few columns. Without `columns`, lines are not wrapped.
std::string renderTextTrees(const std::vector<TextTree>& trees, bool useColors,
                            std::optional<int> columns = std::nullopt);

} // namespace tamberline
