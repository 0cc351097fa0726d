// Two files: the USB section, and the dump that lists which devices are halves of one hub.
#include "reports/usb_report.h"

#include "device_checks.h"
#include "document_checks.h"
#include "fuzz_target.h"
#include "inspect/document_parts.h"
#include "registry/probe_results.h"
#include "reports/container_hubs.h"
#include "reports/report_decoding.h"

#include <utility>

namespace tamberline {

void tryInput(std::string_view input) {
  std::vector<std::string> parts = partsOf(input, 2);
  const auto report = decodeReport(parts[0]);
  if (!report) {
    return;
  }
  const auto dump = PropertyList::decode(std::move(parts[1]));
  const std::vector<USBBus> buses =
      parseUSB(*report, dump ? containerIDsIn(*dump) : ContainerIDs());
  const std::vector<USBBus> merged = mergeContainerHubs(buses);
  requireNothingLost(buses, merged);
  for (const USBBus& bus : merged) {
    requireSoundDocument(describe(bus));
  }
}

} // namespace tamberline
