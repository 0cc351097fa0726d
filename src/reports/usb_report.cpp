#include "reports/usb_report.h"

#include "base/text.h"
#include "reports/json_values.h"
#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

void appendMountedVolumes(const json& medium, std::vector<USBVolume>& volumes) {
  for (const json& volume : objectsMember(medium, "volumes")) {
    std::string mountPoint = textMember(volume, "mount_point", "");
    if (!mountPoint.empty()) {
      volumes.push_back({textMember(volume, "_name", ""), std::move(mountPoint)});
    }
  }
}

std::vector<USBVolume> mountedVolumes(const json& item) {
  std::vector<USBVolume> volumes;
  for (const json& medium : objectsMember(item, "Media")) {
    appendMountedVolumes(medium, volumes);
  }
  return volumes;
}

/// A speed in Mb/s from a key that only this program writes, for speeds without a token in the
/// report.
std::optional<double> gbpsMember(const json& object, std::string_view key) {
  const auto megabits = integerTextMember(object, key);
  return megabits && *megabits > 0 ? std::optional(static_cast<double>(*megabits) / 1000)
                                   : std::nullopt;
}

USBDevice parseDevice(const json& item, std::string name, const ContainerIDs& containerIDs,
                      const USBAbilities& abilities) {
  USBDevice device{
      .name = std::move(name),
      .vendorID = textMember(item, "vendor_id", ""),
      .productID = textMember(item, "product_id", ""),
      .speed = textMember(item, "device_speed", ""),
      .manufacturer = textMember(item, "manufacturer", ""),
      .serialNumber = textMember(item, "serial_num"),
      .busPower = integerTextMember(item, "bus_power"),
      .busPowerUsed = integerTextMember(item, "bus_power_used"),
      .extraCurrentMa = integerTextMember(item, "extra_current_used"),
      .isBuiltIn = knownFlagMember(item, "tamberline_is_built_in"),
      .isTunneled = knownFlagMember(item, "tamberline_is_tunneled"),
      .volumes = mountedVolumes(item),
      .children = parseUSBDevices(objectsMember(item, "_items"), containerIDs, abilities),
      .untokenedGbps = gbpsMember(item, "tamberline_mbps"),
  };
  if (const auto locationID = parseLocationID(textMember(item, "location_id", ""))) {
    device.locationID = locationID;
    device.physicalPort = physicalPortOf(*locationID);
    device.ability = abilities.find(*locationID).value_or(USBAbility());
    device.containerID = containerIDs.find(*locationID);
  }
  return device;
}

} // namespace

std::vector<USBBus> parseUSB(const json& report, const ContainerIDs& containerIDs,
                             const USBAbilities& abilities) {
  std::vector<USBBus> buses;
  for (const json& entry : objectsMember(report, usbSectionKey)) {
    buses.push_back(USBBus{
        .rawName = textMember(entry, "_name", "USBBus"),
        .hostController = textMember(entry, "host_controller", ""),
        .devices = parseUSBDevices(objectsMember(entry, "_items"), containerIDs, abilities),
        .unnamedMaxGbps = gbpsMember(entry, "tamberline_max_mbps"),
        .isBuiltIn = flagMember(entry, "tamberline_is_built_in"),
    });
  }
  return buses;
}

std::vector<USBDevice> parseUSBDevices(const json& items, const ContainerIDs& containerIDs,
                                       const USBAbilities& abilities) {
  std::vector<USBDevice> devices;
  for (const json& item : items) {
    if (std::optional<std::string> name = textMember(item, "_name")) {
      devices.push_back(parseDevice(item, std::move(*name), containerIDs, abilities));
    }
  }
  return devices;
}

std::vector<USBDevice> parseTunneledDrives(const json& items) {
  std::vector<USBDevice> drives;
  for (const json& item : items) {
    USBDevice drive{.name = textMember(item, "_name", ""),
                    .speed = textMember(item, "device_speed", ""),
                    .serialNumber = textMember(item, "serial_num"),
                    .untokenedGbps = gbpsMember(item, "tamberline_mbps"),
                    .isTunneledDrive = true};
    appendMountedVolumes(item, drive.volumes);
    drives.push_back(std::move(drive));
  }
  return drives;
}

std::int64_t physicalPortOf(std::int64_t locationID) {
  return static_cast<std::int64_t>((static_cast<std::uint64_t>(locationID) >> 24U) & 0xFFU);
}

std::optional<std::int64_t> parseLocationID(std::string_view text) {
  std::string_view digits = trimmed(split(trimmed(text), '/').front());
  if (digits.starts_with("0x")) {
    digits.remove_prefix(2);
  }
  return parseHexadecimal(digits);
}

} // namespace tamberline
