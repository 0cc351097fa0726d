#pragma once

#include "views/colors.h"

#include <optional>
#include <string>

namespace tamberline {

/// A small coloured label.
struct Badge {
  std::string text = {};
  std::optional<std::string> icon = {};
  std::optional<Color> color = {}; // absent: plain text, no background
  std::string tooltip = {};

  friend bool operator==(const Badge&, const Badge&) = default;
};

} // namespace tamberline
