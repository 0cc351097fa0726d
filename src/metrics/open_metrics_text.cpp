#include "metrics/open_metrics_text.h"

#include "base/shown_text.h"
#include "base/text.h"

#include <cmath>
#include <string_view>

namespace tamberline {
namespace {

std::string escaped(std::string_view text) {
  return replacedAll(replacedAll(replacedAll(text, "\\", "\\\\"), "\"", "\\\""), "\n", "\\n");
}

std::string labelsText(const MetricSample& sample) {
  std::vector<std::string> labels;
  for (const auto& [name, value] : sample.labels) {
    labels.push_back(name + "=\"" + escaped(labelValue(value)) + "\"");
  }
  return labels.empty() ? std::string() : "{" + joined(labels, ",") + "}";
}

/// Whole numbers in full: six digits are too few for a speed in bits per second.
std::string numberText(double value) {
  constexpr double maxExact = 9'007'199'254'740'992; // 2^53
  const bool isWhole = std::abs(value) < maxExact && std::trunc(value) == value;
  return isWhole ? fixedText(value, 0) : generalText(value);
}

} // namespace

std::string labelValue(std::string_view text) {
  constexpr std::size_t maxLabelCharacters = 64;
  return shownText(text, maxLabelCharacters);
}

std::string openMetricsText(const std::vector<MetricFamily>& families) {
  std::string text;
  for (const MetricFamily& family : families) {
    if (family.samples.empty()) {
      continue;
    }
    text += "# HELP " + family.name + " " + family.help + "\n";
    text += "# TYPE " + family.name + " gauge\n";
    if (!family.unit.empty()) {
      text += "# UNIT " + family.name + " " + family.unit + "\n";
    }
    for (const MetricSample& sample : family.samples) {
      text += family.name + labelsText(sample) + " " + numberText(sample.value) + "\n";
    }
  }
  return text + "# EOF\n";
}

} // namespace tamberline
