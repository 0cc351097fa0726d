#include "support/sample_records.h"

#include <utility>

namespace tamberline {

ThunderboltBus thunderboltBus(std::int64_t busNumber, std::vector<ThunderboltDevice> devices) {
  return ThunderboltBus{.busNumber = busNumber, .connectedDevices = std::move(devices)};
}

ThunderboltDevice thunderboltDevice(const std::string& name,
                                    std::vector<ThunderboltDevice> children) {
  return ThunderboltDevice{
      .name = name, .vendorName = "Harbour", .uid = "uid-" + name, .children = std::move(children)};
}

USBBus internalBus(std::vector<USBDevice> devices) {
  return USBBus{
      .rawName = "USB31Bus", .hostController = "AppleT6020USBXHCI", .devices = std::move(devices)};
}

USBBus addOnBus(const std::string& rawName, std::vector<USBDevice> devices) {
  return USBBus{
      .rawName = rawName, .hostController = "AppleUSBXHCIPCI", .devices = std::move(devices)};
}

USBDevice usbDevice(const std::string& name, std::vector<USBDevice> children) {
  return USBDevice{.name = name, .speed = "super_speed", .children = std::move(children)};
}

USBDevice usbDeviceOnPort(std::int64_t physicalPort, const std::string& name) {
  USBDevice device = usbDevice(name);
  device.physicalPort = physicalPort;
  return device;
}

HPMPort chargerPort(std::int64_t portNumber) {
  return HPMPort{.portNumber = portNumber, .connectionActive = true};
}

HPMPort magSafePort(std::int64_t portNumber) {
  return HPMPort{.portNumber = portNumber, .isMagSafe = true, .connectionActive = true};
}

HPMPort chargeOnlyPort(std::int64_t portNumber) {
  return HPMPort{.portNumber = portNumber, .connectionActive = true, .accessoryID = 5};
}

} // namespace tamberline
