#include "views/colors.h"

namespace tamberline {

std::string_view nameOf(Color color) {
  switch (color) {
  case Color::green:
    return "green";
  case Color::amber:
    return "amber";
  case Color::orange:
    return "orange";
  case Color::red:
    return "red";
  case Color::blue:
    return "blue";
  case Color::purple:
    return "purple";
  case Color::yellow:
    return "yellow";
  case Color::grey:
    return "grey";
  case Color::accent:
    return "accent";
  case Color::secondary:
    return "secondary";
  case Color::primary:
    return "primary";
  case Color::textBackground:
    return "textBackground";
  case Color::clear:
    return "clear";
  }
  return "";
}

} // namespace tamberline
