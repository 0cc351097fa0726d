#pragma once

#include "platform/linux/sysfs/read/machine.h"
#include "platform/linux/sysfs/report/partners.h"
#include "platform/linux/sysfs/report/physical_ports.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline::sysfs {

/// Adds what the kernel knows about a USB-C port and what is plugged into it to the entry of its
/// controller: offers, cable, video, failures. The keys begin with "Tamberline", because a Mac's
/// registry has none of them.
void addPortDetails(int number, const Machine& machine, const PortUse& use,
                    const PhysicalPorts& ports, nlohmann::json& entry);

} // namespace tamberline::sysfs
