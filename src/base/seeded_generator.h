#pragma once

#include <random>

namespace tamberline {

/// A fast generator with a different seed in every call: 256 bits from the system. Not for secrets.
std::mt19937_64 seededGenerator();

} // namespace tamberline
