#include "base/utf8.h"
#include "probed_dump.h"

namespace tamberline {

void tryInput(std::string_view input) {
  const ContainerIDs identifiers = probedDump(fetchContainerIDs, Question::usbHostDevices, input);
  for (const std::int64_t locationID : {0x01100000LL, 0xFFFFFFFFLL, -1LL}) {
    const std::optional<std::string> found = identifiers.find(locationID);
    require(!found || identifiers.size() > 0, "nothing is found where nothing is");
    require(isValidUtf8(found.value_or("")), "identifiers are UTF-8");
  }
}

} // namespace tamberline
