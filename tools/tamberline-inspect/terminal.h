#pragma once

#include <optional>

namespace tamberline {

/// The style of text for people. Anything but a terminal gets the plain style: no colours and no
/// wrapping.
struct TextStyle {
  bool useColors = false;
  /// The width for wrapping lines; absent if unknown.
  std::optional<int> columns;
};

/// From standard output and the environment (COLUMNS, NO_COLOR, TERM). Read it again each time,
/// because a terminal's width may change.
TextStyle styleOfStandardOutput();

} // namespace tamberline
