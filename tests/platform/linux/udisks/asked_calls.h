#pragma once

#include <string>
#include <vector>

namespace tamberline {

struct AskedCall {
  std::string method;
  int timeLimit; // milliseconds; the max value stands for none

  bool operator==(const AskedCall&) const = default;
};

/// The calls that this process has passed to the bus library since the last call of this function;
/// without the first one of each connection, which the library makes itself.
std::vector<AskedCall> takeAskedCalls();

} // namespace tamberline
