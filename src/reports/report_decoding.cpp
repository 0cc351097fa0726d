#include "reports/report_decoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tamberline {
namespace {

/// The deepest nesting of brackets outside of strings; right for every text that is valid JSON.
int nestingDepth(std::string_view bytes) {
  int depth = 0;
  int deepest = 0;
  bool inString = false;
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    const char character = bytes[index];
    if (inString) {
      if (character == '\\') {
        ++index;
      }
      inString = character != '"';
    } else if (character == '"') {
      inString = true;
    } else if (character == '{' || character == '[') {
      deepest = std::max(deepest, ++depth);
    } else if (character == '}' || character == ']') {
      --depth;
    }
  }
  return deepest;
}

} // namespace

std::optional<nlohmann::json> decodeReport(std::string_view bytes) {
  // The JSON library takes a NUL for the end of its input.
  const bool hasNul = bytes.find('\0') != std::string_view::npos;
  if (bytes.empty() || hasNul || nestingDepth(bytes) > deepestReportNesting) {
    return std::nullopt;
  }
  nlohmann::json report = nlohmann::json::parse(bytes, /*cb=*/nullptr, /*allow_exceptions=*/false);
  if (!report.is_object()) {
    return std::nullopt;
  }
  return report;
}

} // namespace tamberline
