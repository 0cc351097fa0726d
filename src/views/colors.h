#pragma once

#include <cstdint>
#include <string_view>

namespace tamberline {

/// Colours by meaning; the drawing side decides what they look like in light and dark.
enum class Color : std::uint8_t {
  green,
  amber,
  orange,
  red,
  blue,
  purple,
  yellow,
  grey,
  accent,
  secondary,
  primary,
  textBackground,
  clear,
};

std::string_view nameOf(Color color);

} // namespace tamberline
