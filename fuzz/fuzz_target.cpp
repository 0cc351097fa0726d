#include "fuzz_target.h"

#include "base/text.h"

#include <cstdio>
#include <cstdlib>

namespace tamberline {

void require(bool isKept, const char* promise) {
  if (!isKept) {
    std::fprintf(stderr, "broken promise: %s\n", promise);
    std::abort();
  }
}

std::vector<std::string> partsOf(std::string_view input, std::size_t count) {
  constexpr char separator = '\x1e';
  const std::vector<std::string_view> pieces = split(input, separator);
  std::vector<std::string> parts(pieces.begin(), pieces.end());
  parts.resize(count);
  return parts;
}

} // namespace tamberline
