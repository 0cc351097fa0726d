#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tamberline {

struct MetricSample {
  /// Names and values. The values may be any text.
  std::vector<std::pair<std::string, std::string>> labels = {};
  double value = 0;
};

/// A gauge with its samples.
struct MetricFamily {
  /// Ends with "_" and the unit, if there is one.
  std::string name = {};
  std::string unit = {};
  /// One line without quotes and backslashes, which the two formats write in different ways.
  std::string help = {};
  std::vector<MetricSample> samples = {};
};

/// Families without a sample are left out. The text ends with "# EOF". It is also one in the older
/// text format of Prometheus, whose comments begin with "#" too.
std::string openMetricsText(const std::vector<MetricFamily>& families);

} // namespace tamberline
