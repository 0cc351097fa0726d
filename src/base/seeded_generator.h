#pragma once

#include <random>

namespace tamberline {

/// A quick generator that begins differently in every call, with 256 bits from the system. Not for
/// secrets.
std::mt19937_64 seededGenerator();

} // namespace tamberline
