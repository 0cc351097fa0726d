#pragma once

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string_view>

namespace tamberline {

/// The top-level object of a hardware report. Absent when the bytes are empty, are no JSON, hold
/// anything but an object at the top, or nest deeper than `deepestReportNesting`: the parsers and
/// the port tree recurse, and no real report comes near.
std::optional<nlohmann::json> decodeReport(std::string_view bytes);

constexpr int deepestReportNesting = 512;

} // namespace tamberline
