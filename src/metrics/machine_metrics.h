#pragma once

#include "metrics/open_metrics_text.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <vector>

namespace tamberline {

/// So many links of a machine have samples; the others are counted. A machine with more is either
/// an invention or a laboratory's, and each link is a series for the server that collects them.
constexpr std::size_t maxMeasuredLinks = 128;
constexpr std::size_t maxMeasuredPorts = 64;
constexpr std::size_t maxAnswerKinds = 64;

/// The figures of one inspection document. Labels name ports and models of devices, and never a
/// serial number, so the number of series is bounded by what is plugged in, and a device of the
/// same model continues the series of the one before.
std::vector<MetricFamily> machineMetrics(const nlohmann::json& document);

} // namespace tamberline
