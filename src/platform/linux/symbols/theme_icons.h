// The names of all symbols that the panel and the menu bar use, and the drawing that the Breeze
// icon theme has for each.
#pragma once

#include <span>
#include <string_view>

namespace tamberline {

struct SymbolIcon {
  std::string_view symbol;
  /// Folder, size and name within the theme. The size is that of the grid that the drawing was made
  /// for; the theme's drawings of the same name on larger grids are often pictures in many colours.
  std::string_view themeIcon;
};

std::span<const SymbolIcon> symbolTable();

/// Empty for a symbol that is not in the table.
std::string_view themeIconName(std::string_view symbol);

} // namespace tamberline
