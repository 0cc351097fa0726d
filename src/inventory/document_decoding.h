#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <optional>
#include <string_view>

namespace tamberline {

/// The limits of an inspection document. It repeats what the reports contain several times: 16,000
/// devices make 1.5 million values, and no tree of more than 65,536 nodes is built. A value of two
/// bytes takes some 80 bytes of memory.
constexpr std::size_t maxDocumentBytes = 256'000'000;
constexpr std::size_t maxDocumentValues = 8'000'000;

/// Whether the bytes exceed those limits.
bool isTooLargeDocument(std::string_view bytes);

/// A document that was saved from the output of an inspection. Absent if the bytes are not one JSON
/// object with a port tree, or too large.
std::optional<nlohmann::json> decodeDocument(std::string_view bytes);

} // namespace tamberline
