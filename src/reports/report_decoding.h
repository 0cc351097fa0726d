#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <optional>
#include <string_view>

namespace tamberline {

/// The sections of the hardware report. Each is a report of its own: an object with this one key and
/// the section's entries under it.
constexpr const char* thunderboltSectionKey = "SPThunderboltDataType";
constexpr const char* usbSectionKey = "SPUSBDataType";
constexpr const char* powerSectionKey = "SPPowerDataType";

/// What a report can be at most. No real one comes near: the largest has some hundred devices. The
/// parsers and the port tree recurse, and what is made of an object of two bytes, from its record
/// to its row, takes thousands.
constexpr int deepestReportNesting = 512;
constexpr std::size_t longestReport = 32'000'000;
constexpr std::size_t mostReportObjects = 16'384;
constexpr std::size_t mostReportValues = 524'288;

/// Whether the bytes go beyond that, in whatever is outside of the texts.
bool isTooLargeReport(std::string_view bytes);

/// The top-level object of a hardware report. Absent when the bytes are empty, are no JSON, hold
/// anything but an object at the top, or are too large a report.
std::optional<nlohmann::json> decodeReport(std::string_view bytes);

} // namespace tamberline
