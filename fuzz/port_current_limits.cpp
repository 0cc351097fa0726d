#include "probed_dump.h"

namespace tamberline {

void tryInput(std::string_view input) {
  for (const auto& [port, limitMa] :
       probedDump(fetchPortCurrentLimits, Question::deviceTree, input)) {
    require(port >= 0 && port <= 0xFFFFFFFF, "a port number has 32 bits");
    require(limitMa >= 0 && limitMa <= 0xFFFFFFFF, "a current limit has 32 bits");
  }
}

} // namespace tamberline
