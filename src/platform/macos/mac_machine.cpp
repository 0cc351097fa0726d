#include "platform/macos/mac_machine.h"

#include "base/text.h"
#include "platform/macos/mounted_media.h"
#include "platform/macos/usb_host_report.h"
#include "registry/property_list.h"
#include "reports/json_values.h"
#include "reports/report_decoding.h"
#include "reports/thunderbolt_report.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

/// Whether the answer is a USB section without entries. Older releases print one too if nothing is
/// attached.
bool isEmptyUsbSection(const std::string& answer) {
  const std::optional<json> report = decodeReport(answer);
  if (!report || !report->contains(usbSectionKey)) {
    return false;
  }
  const json& entries = report->at(usbSectionKey);
  return entries.is_array() && entries.empty();
}

/// The newer section; absent if it has no buses, as on releases that do not have the section.
std::optional<json> hostReportWithBuses(const std::string& answer) {
  std::optional<json> report = decodeReport(answer);
  const bool hasBuses = report && !objectsMember(*report, usbHostSectionKey).empty();
  return hasBuses ? std::move(report) : std::nullopt;
}

std::string textOf(const json& report) {
  return report.dump(-1, ' ', /*ensure_ascii=*/false, json::error_handler_t::replace);
}

/// The Thunderbolt report without entries that say that there is no Thunderbolt, as in virtual
/// machines. Each of them would count as a port.
std::string withoutMissingHardware(std::string answer) {
  constexpr const char* missing = "no_hardware";
  std::optional<json> report = contains(answer, missing) ? decodeReport(answer) : std::nullopt;
  if (!report || objectsMember(*report, thunderboltSectionKey).empty()) {
    return answer;
  }
  json present = json::array();
  for (json& entry : report->at(thunderboltSectionKey)) {
    if (textMember(entry, "Thunderbolt") != missing) {
      present.push_back(std::move(entry));
    }
  }
  return textOf({{thunderboltSectionKey, std::move(present)}});
}

ThunderboltPorts thunderboltPorts(MachineSource& reports) {
  const std::optional<json> report =
      decodeReport(withoutMissingHardware(reports.answer(Question::thunderbolt)));
  ThunderboltPorts ports;
  for (const ThunderboltBus& bus :
       report ? parseThunderbolt(*report) : std::vector<ThunderboltBus>()) {
    ports.insert(bus.busNumber);
  }
  return ports;
}

VolumesByLocation mountedVolumes(MachineSource& reports, const std::vector<Mount>& mounts) {
  const auto list = PropertyList::decode(reports.answer(Question::usbHostDevices));
  return list ? mountedVolumesIn(*list, mounts) : VolumesByLocation();
}

} // namespace

MacMachine::MacMachine(std::shared_ptr<MachineSource> reports, MountTableReader readMountTable)
    : reports_(std::move(reports)), readMountTable_(std::move(readMountTable)) {}

std::string MacMachine::answer(Question question) {
  std::string answer = reports_->answer(question);
  if (question == Question::thunderbolt) {
    return withoutMissingHardware(std::move(answer));
  }
  if (question != Question::usb || !isEmptyUsbSection(answer)) {
    return answer;
  }
  std::string newerAnswer = reports_->answer(Question::newerUsb);
  if (isTooLargeReport(newerAnswer)) {
    return newerAnswer; // the caller reports that it is too large
  }
  const std::optional<json> hostReport = hostReportWithBuses(newerAnswer);
  if (!hostReport) {
    return answer;
  }
  const ThunderboltPorts ports =
      needsThunderboltPorts(*hostReport) ? thunderboltPorts(*reports_) : ThunderboltPorts();
  return textOf(usbReportFrom(*hostReport, mountedVolumes(*reports_, readMountTable_()), ports));
}

} // namespace tamberline
