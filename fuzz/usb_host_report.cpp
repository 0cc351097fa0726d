// Two files: the newer USB section, and the dump that lists the mounted media.
#include "platform/macos/usb_host_report.h"

#include "document_checks.h"
#include "fuzz_target.h"
#include "inspect/document_parts.h"
#include "platform/macos/mounted_media.h"
#include "reports/report_decoding.h"
#include "reports/usb_report.h"

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

VolumesByLocation volumesIn(std::string bytes) {
  static const std::vector<Mount> mounts = {
      {"/dev/disk4s1", "/Volumes/Fieldwork"},
      {"msdos://disk5s1/NO%20NAME", "/Volumes/NO NAME"},
  };
  const auto dump = PropertyList::decode(std::move(bytes));
  return dump ? mountedVolumesIn(*dump, mounts) : VolumesByLocation();
}

bool areOnPorts(const SharedList<USBDevice>& devices, const ThunderboltPorts& ports) {
  return std::all_of(devices.begin(), devices.end(), [&](const USBDevice& device) {
    return device.physicalPort && ports.contains(*device.physicalPort);
  });
}

} // namespace

void tryInput(std::string_view input) {
  std::vector<std::string> parts = partsOf(input, 2);
  const auto hostReport = decodeReport(parts[0]);
  if (!hostReport) {
    return;
  }
  const ThunderboltPorts ports =
      needsThunderboltPorts(*hostReport) ? ThunderboltPorts{0, 1, 2, 3} : ThunderboltPorts();
  const nlohmann::json report = usbReportFrom(*hostReport, volumesIn(std::move(parts[1])), ports);
  require(decodeReport(report.dump()) == report, "what was translated can be decoded");
  for (const USBBus& bus : parseUSB(report, ContainerIDs())) {
    requireSoundDocument(describe(bus));
    require(!bus.isInternalTBController() || areOnPorts(bus.devices, ports),
            "what stands on a port stands on one that is there");
  }
}

} // namespace tamberline
