#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tamberline {
namespace {

/// Counts the structure of a text outside its strings; correct for every valid JSON text.
class Structure {
public:
  explicit Structure(std::string_view bytes) {
    bool inString = false;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
      const char character = bytes[index];
      if (inString) {
        index += character == '\\' ? 1 : 0;
        inString = character != '"';
      } else if (character == '"') {
        inString = true;
      } else {
        count(character);
      }
    }
  }

  std::size_t values() const { return values_; }

  bool isWithinLimits() const {
    return maxDepth_ <= maxReportNesting && objects_ <= maxReportObjects &&
           values_ <= maxReportValues;
  }

private:
  void count(char character) {
    if (character == '{' || character == '[') {
      maxDepth_ = std::max(maxDepth_, ++depth_);
      objects_ += character == '{' ? 1 : 0;
      ++values_;
    } else if (character == '}' || character == ']') {
      --depth_;
    } else if (character == ',') {
      ++values_;
    }
  }

  int depth_ = 0;
  int maxDepth_ = 0;
  std::size_t objects_ = 0;
  std::size_t values_ = 0; // separators and opening brackets; each value has at least one
};

} // namespace

bool isTooLargeReport(std::string_view bytes) {
  return bytes.size() > maxReportBytes || !Structure(bytes).isWithinLimits();
}

std::size_t countJsonValues(std::string_view bytes) {
  return Structure(bytes).values();
}

std::optional<nlohmann::json> decodeReport(std::string_view bytes) {
  // The JSON library treats a NUL as the end of its input.
  const bool hasNul = bytes.find('\0') != std::string_view::npos;
  if (bytes.empty() || hasNul || isTooLargeReport(bytes)) {
    return std::nullopt;
  }
  nlohmann::json report = nlohmann::json::parse(bytes, /*cb=*/nullptr, /*allow_exceptions=*/false);
  if (!report.is_object()) {
    return std::nullopt;
  }
  return report;
}

} // namespace tamberline
