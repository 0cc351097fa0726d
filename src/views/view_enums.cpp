#include "views/view_enums.h"

namespace tamberline::views {

std::string_view nameOf(Color color) {
  switch (color) {
  case Color::Green:
    return "green";
  case Color::Amber:
    return "amber";
  case Color::Orange:
    return "orange";
  case Color::Red:
    return "red";
  case Color::Blue:
    return "blue";
  case Color::Purple:
    return "purple";
  case Color::Yellow:
    return "yellow";
  case Color::Grey:
    return "grey";
  case Color::Accent:
    return "accent";
  case Color::Secondary:
    return "secondary";
  case Color::Primary:
    return "primary";
  case Color::TextBackground:
    return "textBackground";
  case Color::Clear:
    return "clear";
  case Color::SpeedTextAmber:
    return "speedTextAmber";
  }
  return "";
}

} // namespace tamberline::views
