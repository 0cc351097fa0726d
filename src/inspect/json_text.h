#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace tamberline {

/// A document as it is printed: UTF-8, in one line for a negative `indent`. Characters that a
/// terminal obeys or that hide what stands there (control characters, turned directions, characters
/// without width) are written as \uXXXX, which reads back as the same.
std::string jsonText(const nlohmann::ordered_json& document, int indent);

} // namespace tamberline
