#pragma once

#include "inspect/text_line.h"

#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// An entry of an indented tree: its lines, the first of them at the connector, and what is below.
struct TextTree {
  std::vector<TextLine> lines;
  std::vector<TextTree> children;
};

/// The entries one below the other, a blank line between them, with box-drawing connectors for
/// everything below; in the terminal's colours when `useColors`. Lines that are longer than so many
/// `columns` go on below, a little further in, and the connectors beside them; a deep entry has a
/// few columns all the same. Without `columns` each line is as long as it is.
std::string renderTextTrees(const std::vector<TextTree>& trees, bool useColors,
                            std::optional<int> columns = std::nullopt);

} // namespace tamberline
