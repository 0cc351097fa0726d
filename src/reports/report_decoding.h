#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <optional>
#include <string_view>

namespace tamberline {

/// The sections of the hardware report. Each is a report of its own: an object with this one key
/// and the section's entries under it.
constexpr const char* thunderboltSectionKey = "SPThunderboltDataType";
constexpr const char* usbSectionKey = "SPUSBDataType";
constexpr const char* powerSectionKey = "SPPowerDataType";

/// The limits of a report. No real one comes near: the largest has a few hundred devices. The
/// parsers and the port tree recurse, and an object of two bytes needs thousands of bytes for its
/// record, its row and everything in between.
constexpr int maxReportNesting = 512;
constexpr std::size_t maxReportBytes = 32'000'000;
constexpr std::size_t maxReportObjects = 16'384;
constexpr std::size_t maxReportValues = 524'288;

/// Whether the bytes exceed those limits, not counting the contents of strings.
bool isTooLargeReport(std::string_view bytes);

/// At least the number of values in a JSON text and at most twice as many, not counting the
/// contents of strings.
std::size_t countJsonValues(std::string_view bytes);

/// The top-level object of a hardware report. Absent if the bytes are empty, are not JSON, have
/// anything but an object at the top, or are too large.
std::optional<nlohmann::json> decodeReport(std::string_view bytes);

} // namespace tamberline
