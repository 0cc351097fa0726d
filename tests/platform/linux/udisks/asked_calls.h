#pragma once

#include <string>
#include <vector>

namespace tamberline {

struct AskedCall {
  std::string method;
  int timeLimit; // milliseconds; the greatest number stands for none

  bool operator==(const AskedCall&) const = default;
};

/// The calls that this process has handed to the bus library since it was last asked; without the
/// first one of each connection, which the library makes itself.
std::vector<AskedCall> takeAskedCalls();

} // namespace tamberline
