// The registry probes. Each requests a part of the registry in the background and parses the dump
// on the main thread. A missing or unexpected answer gives an empty result; nothing is thrown. Main
// thread only.
#pragma once

#include "acquisition/acquisition.h"
#include "acquisition/machine_answer.h"
#include "model/container_ids.h"
#include "model/power_records.h"
#include "registry/probe_results.h"

#include <QCoro/QCoroTask>

#include <cstdint>
#include <map>
#include <vector>

namespace tamberline {

QCoro::Task<std::vector<HPMPort>> fetchHPMPorts(Acquisition acquisition);
QCoro::Task<std::map<std::int64_t, PortPowerOut>> fetchPortPowerOut(Acquisition acquisition);
QCoro::Task<std::map<std::int64_t, std::int64_t>> fetchPortCurrentLimits(Acquisition acquisition);
/// Returns `last` if the dump has not changed since.
QCoro::Task<LastReading<ContainerIDs>> fetchContainerIDs(Acquisition acquisition,
                                                         LastReading<ContainerIDs> last);
QCoro::Task<FedDetails> fetchFedDetails(Acquisition acquisition);

} // namespace tamberline
