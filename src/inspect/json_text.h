#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace tamberline {

/// A document as printed: UTF-8, in one line for a negative `indent`. Control characters, direction
/// overrides and zero-width characters are written as \uXXXX, which reads back as the same:
/// otherwise they could control a terminal or hide text.
std::string jsonText(const nlohmann::ordered_json& document, int indent);

} // namespace tamberline
