#pragma once

#include <cstdint>
#include <limits>

namespace tamberline {

/// A sum that saturates at the limits of its type. A device that reports absurd numbers must
/// neither crash the program nor make a large draw look negative.
constexpr std::int64_t saturatingSum(std::int64_t left, std::int64_t right) {
  constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
  constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
  if (right > 0 && left > highest - right) {
    return highest;
  }
  if (right < 0 && left < lowest - right) {
    return lowest;
  }
  return left + right;
}

} // namespace tamberline
