#include "inspect/document_parts.h"

namespace tamberline {
namespace {

Document describe(const ThunderboltPort& port) {
  return {
      {"status", port.status},
      {"speed", port.speed},
      {"linkWidth", port.linkWidth},
      {"isConnected", port.isConnected()},
      {"speedGbps", port.speedGbps()},
      {"laneCount", port.laneCount()},
      {"totalBandwidthGbps", port.totalBandwidthGbps()},
      {"badgeText", port.badgeText()},
  };
}

Document describe(const USBVolume& volume) {
  return {{"name", volume.name}, {"mountPoint", volume.mountPoint}};
}

Document linkOf(const ThunderboltDevice& device) {
  return describeLink(device.link.value_or(TrueLink()), device.isAuthorized);
}

} // namespace

Document describe(const TrueLink& link) {
  return {
      {"transmitGbps", orNull(link.transmitGbps)},
      {"receiveGbps", orNull(link.receiveGbps)},
      {"transmitLanes", orNull(link.transmitLanes)},
      {"receiveLanes", orNull(link.receiveLanes)},
  };
}

Document describeBusWithoutChildren(const ThunderboltBus& bus) {
  return {
      {"busNumber", bus.busNumber},       {"hostName", bus.hostName},   {"uid", bus.uid},
      {"displayName", bus.displayName()}, {"port", describe(bus.port)},
  };
}

Document describe(const ThunderboltBus& bus) {
  Document document = describeBusWithoutChildren(bus);
  document["connectedDevices"] = listOf(
      bus.connectedDevices, [](const ThunderboltDevice& device) { return describe(device); });
  return document;
}

Document describeDeviceWithoutChildren(const ThunderboltDevice& device) {
  return {
      {"name", device.name},
      {"vendorName", device.vendorName},
      {"mode", device.mode},
      {"uid", device.uid},
      {"firmwareVersion", device.firmwareVersion},
      {"upstreamSpeed", device.upstreamSpeed},
      {"upstreamWidth", device.upstreamWidth},
      {"modeLabel", device.modeLabel()},
      {"upstreamSpeedGbps", device.upstreamSpeedGbps()},
      {"upstreamLanes", device.upstreamLanes()},
      {"upstreamLabel", device.upstreamLabel()},
      {"link", linkOf(device)},
      {"drive", driveOf(device)},
  };
}

Document describe(const ThunderboltDevice& device) {
  Document document = describeDeviceWithoutChildren(device);
  document["children"] =
      listOf(device.children, [](const ThunderboltDevice& child) { return describe(child); });
  return document;
}

Document describeBusWithoutChildren(const USBBus& bus) {
  return {
      {"rawName", bus.rawName},
      {"hostController", bus.hostController},
      {"displayName", bus.displayName()},
      {"maxSpeedGbps", bus.maxSpeedGbps()},
      {"maxSpeedLabel", bus.maxSpeedLabel()},
      {"portMaxMa", bus.portMaxMa()},
      {"isInternalTBController", bus.isInternalTBController()},
  };
}

Document describe(const USBBus& bus) {
  Document document = describeBusWithoutChildren(bus);
  document["devices"] =
      listOf(bus.devices, [](const USBDevice& device) { return describe(device); });
  return document;
}

Document describeDeviceWithoutChildren(const USBDevice& device) {
  return {
      {"name", device.name},
      {"vendorID", device.vendorID},
      {"productID", device.productID},
      {"speed", device.speed},
      {"manufacturer", device.manufacturer},
      {"serialNumber", orNull(device.serialNumber)},
      {"busPower", orNull(device.busPower)},
      {"busPowerUsed", orNull(device.busPowerUsed)},
      {"containerID", orNull(device.containerID)},
      {"physicalPort", orNull(device.physicalPort)},
      {"volumes", listOf(device.volumes, [](const USBVolume& volume) { return describe(volume); })},
      {"speedGbps", device.speedGbps()},
      {"speedShortLabel", device.speedShortLabel()},
      {"speedDetailLabel", device.speedDetailLabel()},
      {"powerAvailableW", orNull(device.powerAvailableW())},
      {"powerUsedW", orNull(device.powerUsedW())},
      {"powerFraction", orNull(device.powerFraction())},
  };
}

Document describe(const USBDevice& device) {
  Document document = describeDeviceWithoutChildren(device);
  document["children"] =
      listOf(device.children, [](const USBDevice& child) { return describe(child); });
  return document;
}

Document describe(const ChargerInfo& charger) {
  return {
      {"name", charger.name},
      {"manufacturer", charger.manufacturer},
      {"ratedWatts", orNull(charger.ratedWatts)},
      {"currentWatts", orNull(charger.currentWatts)},
      {"hardwareVersion", charger.hardwareVersion},
      {"firmwareVersion", charger.firmwareVersion},
      {"isConnected", charger.isConnected},
      {"isCharging", charger.isCharging},
      {"connectsViaUSBC", charger.connectsViaUSBC},
      {"portLabel", orNull(charger.portLabel)},
  };
}

Document describe(const BatteryInfo& battery) {
  return {
      {"stateOfCharge", battery.stateOfCharge},
      {"isFullyCharged", battery.isFullyCharged},
      {"isCharging", battery.isCharging},
      {"health", battery.health},
      {"maxCapacityPercent", battery.maxCapacityPercent},
      {"cycleCount", battery.cycleCount},
  };
}

Document describe(const HPMPort& port) {
  return {
      {"portNumber", port.portNumber},
      {"isMagSafe", port.isMagSafe},
      {"connectionActive", port.connectionActive},
      {"hasData", port.hasData},
      {"hasVideo", port.hasVideo},
      {"activeCable", port.activeCable},
      {"opticalCable", port.opticalCable},
      {"accessoryID", port.accessoryID},
      {"isCharger", port.isCharger()},
      {"isChargeOnlyDevice", port.isChargeOnlyDevice()},
      {"cableLabel", orNull(port.cableLabel())},
      {"label", port.label()},
  };
}

Document describe(const FedPortState& port) {
  return {
      {"index", port.index},           {"isConnected", port.isConnected},
      {"isDualRole", port.isDualRole}, {"vendorID", port.vendorID},
      {"productID", port.productID},   {"powerRole", port.powerRole},
  };
}

Document describeLink(const TrueLink& link, std::optional<bool> isAuthorized) {
  if (link == TrueLink() && !isAuthorized) {
    return nullptr;
  }
  Document document = describe(link);
  document["isAuthorized"] = orNull(isAuthorized);
  return document;
}

Document driveOf(const ThunderboltDevice& device) {
  if (device.drives.empty()) {
    return nullptr;
  }
  const USBDevice& drive = device.drives.front();
  return {
      {"name", drive.name},
      {"serialNumber", orNull(drive.serialNumber)},
      {"speedGbps", drive.speedGbps()},
      {"volumes", listOf(drive.volumes, [](const USBVolume& volume) { return describe(volume); })},
  };
}

Document describe(const AgreedPower& power) {
  return {{"volts", power.volts}, {"amps", power.amps}, {"watts", power.watts()}};
}

Document describe(const PortPowerOut& power) {
  return {
      {"usedWatts", power.usedWatts},
      {"allocatedWatts", power.allocatedWatts},
      {"volts", power.volts},
      {"amps", power.amps},
  };
}

} // namespace tamberline
