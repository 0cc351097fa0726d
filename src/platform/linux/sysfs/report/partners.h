#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/report/physical_ports.h"

#include <string>
#include <vector>

namespace tamberline::sysfs {

/// What the connection on a USB-C port is used for, as far as the kernel reports it.
struct PortUse {
  /// The transports that carry data, by their names in port controllers: "USB2", "USB3", "USB4" or
  /// "CIO".
  std::vector<std::string> dataTransports = {};
  bool showsVideo = false;
  bool powersComputer = false;
  /// The partner draws power and has no other use that the kernel would report.
  bool onlyCharges = false;

  bool isKnown() const;
};

PortUse useOf(int number, const Machine& machine, const PhysicalPorts& ports);

/// A word for a partner that is not a device: "audio", "debug", "video" (it can show pictures),
/// "source" (it offers power that the computer does not take), "unknown"; empty if there is none.
std::string partnerWord(const TypecPort& port, const PortUse& use);

} // namespace tamberline::sysfs
