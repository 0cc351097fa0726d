#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/report/physical_ports.h"

#include <string>
#include <vector>

namespace tamberline::sysfs {

/// What the connection on a USB-C port is used for, as far as the kernel tells.
struct PortUse {
  /// Data that goes over it, by the names that port controllers have for it: "USB2", "USB3", "USB4"
  /// or "CIO".
  std::vector<std::string> dataTransports = {};
  bool showsVideo = false;
  bool powersComputer = false;
  /// It draws power and is nothing else that the kernel would tell of.
  bool onlyCharges = false;

  bool isKnown() const;
};

PortUse useOf(int number, const Machine& machine, const PhysicalPorts& ports);

/// A word for a partner that is no device: "audio", "debug", "video" (a picture can be shown
/// through it), "source" (it offers power that the computer does not take), "unknown"; empty when
/// there is none.
std::string partnerWord(const TypecPort& port, const PortUse& use);

} // namespace tamberline::sysfs
