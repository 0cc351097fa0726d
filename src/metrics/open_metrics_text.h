#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tamberline {

/// A text from outside as the value of a label: shortened, and without control characters.
std::string labelValue(std::string_view text);

struct MetricSample {
  /// Names and values. No two samples of a family may have the same labels: who collects them would
  /// refuse the whole text. So texts from outside must be a `labelValue` before they are compared.
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
