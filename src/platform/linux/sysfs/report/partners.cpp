#include "platform/linux/sysfs/report/partners.h"

#include "platform/linux/sysfs/report/adapters.h"

namespace tamberline::sysfs {
namespace {

/// What is known about the USB devices on one USB-C port.
struct UsbUse {
  bool isLinked = false; // firmware links USB ports to it
  bool hasBillboard = false;
  std::vector<std::string> transports = {};
};

UsbUse usbUseOf(int number, const Machine& machine, const PhysicalPorts& ports) {
  UsbUse use;
  for (const auto& [address, port] : ports.portOfUsbPort) {
    if (port != number) {
      continue;
    }
    use.isLinked = true;
    const auto device = machine.usb.devices.find(address);
    if (device != machine.usb.devices.end()) {
      use.hasBillboard = use.hasBillboard || device->second.isBillboard;
      use.transports.emplace_back(device->second.isSuperSpeed() ? "USB3" : "USB2");
    }
  }
  return use;
}

bool isWiresOnly(const TypecPartner& partner) {
  return partner.accessory != PartnerAccessory::none;
}

} // namespace

bool PortUse::isKnown() const {
  return !dataTransports.empty() || showsVideo || powersComputer || onlyCharges;
}

PortUse useOf(int number, const Machine& machine, const PhysicalPorts& ports) {
  const TypecPort& port = machine.typecPorts.at(number);
  if (!port.partner) {
    return {};
  }
  constexpr std::int64_t usb4Generation = 4;
  const UsbUse usb = usbUseOf(number, machine, ports);
  PortUse use{.dataTransports = usb.transports,
              // An adapter that could not switch to video appears as a billboard instead.
              .showsVideo = port.partner->video == PartnerVideo::active && !usb.hasBillboard,
              .powersComputer = chargingPort(machine) == number};
  for (const RouterAddress& router : ports.ports.at(number).routers) {
    const bool isUsb4 = machine.thunderbolt.routers.at(router).generation == usb4Generation;
    use.dataTransports.emplace_back(isUsb4 ? "USB4" : "CIO");
  }
  use.onlyCharges = !use.isKnown() && usb.isLinked && port.role == PowerRole::source &&
                    !isWiresOnly(*port.partner) && !port.partner->hasAlternateModes;
  return use;
}

std::string partnerWord(const TypecPort& port, const PortUse& use) {
  if (!port.partner) {
    return {};
  }
  switch (port.partner->accessory) {
  case PartnerAccessory::audio:
    return "audio";
  case PartnerAccessory::debug:
    return "debug";
  case PartnerAccessory::none:
    break;
  }
  if (port.partner->video != PartnerVideo::none) {
    return "video";
  }
  return port.role == PowerRole::sink && !use.powersComputer ? "source" : "unknown";
}

} // namespace tamberline::sysfs
