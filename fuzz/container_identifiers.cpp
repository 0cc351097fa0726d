#include "base/utf8.h"
#include "document_checks.h"
#include "inspect/document_parts.h"
#include "probed_dump.h"

namespace tamberline {

namespace {

QCoro::Task<LastReading<USBHostDevices>> readContainerIDs(Acquisition acquisition) {
  return fetchContainerIDs(std::move(acquisition), nullptr);
}

} // namespace

void tryInput(std::string_view input) {
  const LastReading<USBHostDevices> reading =
      probedDump(readContainerIDs, Question::usbHostDevices, input);
  require(reading != nullptr, "an answer is always read");
  const USBHostDevices& devices = reading->result;
  for (const std::int64_t locationID : {0x01100000LL, 0xFFFFFFFFLL, -1LL}) {
    const std::optional<std::string> found = devices.containerIDs.find(locationID);
    require(!found || devices.containerIDs.size() > 0, "nothing is found where nothing is");
    require(isValidUtf8(found.value_or("")), "identifiers are UTF-8");
    if (const auto ability = devices.abilities.find(locationID)) {
      requireSoundDocument(describe(*ability));
    }
  }
}

} // namespace tamberline
