// The symbols that the panel and the menu bar use, each with its icon in the Breeze icon theme.
#pragma once

#include <span>
#include <string_view>

namespace tamberline {

struct SymbolIcon {
  std::string_view symbol;
  /// Folder, size and name within the theme. The size is that of the grid that the icon was drawn
  /// for; icons of the same name on larger grids are often pictures in many colours.
  std::string_view themeIcon;
};

std::span<const SymbolIcon> symbolTable();

/// Empty for a symbol that is not in the table.
std::string_view themeIconName(std::string_view symbol);

} // namespace tamberline
