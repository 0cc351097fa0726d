// The registry probes. Each requests a part of the registry in the background and parses the dump
// on the main thread. A missing or unexpected answer gives an empty result; nothing is thrown. Main
// thread only.
#pragma once

#include "acquisition/acquisition.h"
#include "acquisition/machine_answer.h"
#include "model/charging_state.h"
#include "model/power_records.h"
#include "model/usb_host_devices.h"
#include "registry/probe_results.h"

#include <QCoro/QCoroTask>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace tamberline {

/// What the dump of the battery controller contains.
struct BatteryController {
  /// By 1-based port number.
  std::map<std::int64_t, PortPowerOut> portPowerOut;
  std::optional<ChargingState> charging;
};

QCoro::Task<std::vector<HPMPort>> fetchHPMPorts(Acquisition acquisition);
QCoro::Task<BatteryController> fetchPortPowerOut(Acquisition acquisition);
QCoro::Task<std::map<std::int64_t, std::int64_t>> fetchPortCurrentLimits(Acquisition acquisition);
/// Returns `last` if the dump has not changed since.
QCoro::Task<LastReading<USBHostDevices>> fetchContainerIDs(Acquisition acquisition,
                                                           LastReading<USBHostDevices> last);
QCoro::Task<FedDetails> fetchFedDetails(Acquisition acquisition);

} // namespace tamberline
