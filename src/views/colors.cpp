#include "views/colors.h"

#include <array>

namespace tamberline {

std::string_view nameOf(Color color) {
  static constexpr std::array<std::string_view, 13> names = {
      "green", "amber",  "orange",    "red",     "blue",           "purple", "yellow",
      "grey",  "accent", "secondary", "primary", "textBackground", "clear"};
  return names[static_cast<std::size_t>(color)];
}

} // namespace tamberline
