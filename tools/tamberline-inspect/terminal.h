#pragma once

#include <optional>

namespace tamberline {

/// How text for people is written. What is no terminal has the plain one: no colours, and lines as
/// long as they are.
struct TextStyle {
  bool useColors = false;
  /// To wrap lines at; absent: unknown.
  std::optional<int> columns;
};

/// As standard output and the environment (COLUMNS, NO_COLOR, TERM) are now; a terminal's window
/// may change its width.
TextStyle styleOfStandardOutput();

} // namespace tamberline
