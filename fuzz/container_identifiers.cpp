#include "base/utf8.h"
#include "probed_dump.h"

namespace tamberline {

namespace {

QCoro::Task<LastReading<ContainerIDs>> readContainerIDs(Acquisition acquisition) {
  return fetchContainerIDs(std::move(acquisition), nullptr);
}

} // namespace

void tryInput(std::string_view input) {
  const LastReading<ContainerIDs> reading =
      probedDump(readContainerIDs, Question::usbHostDevices, input);
  require(reading != nullptr, "an answer is always read");
  const ContainerIDs& identifiers = reading->result;
  for (const std::int64_t locationID : {0x01100000LL, 0xFFFFFFFFLL, -1LL}) {
    const std::optional<std::string> found = identifiers.find(locationID);
    require(!found || identifiers.size() > 0, "nothing is found where nothing is");
    require(isValidUtf8(found.value_or("")), "identifiers are UTF-8");
  }
}

} // namespace tamberline
