#include "base/seeded_generator.h"

namespace tamberline {

std::mt19937_64 seededGenerator() {
  std::random_device source;
  std::seed_seq seed = {source(), source(), source(), source(),
                        source(), source(), source(), source()};
  return std::mt19937_64(seed);
}

} // namespace tamberline
