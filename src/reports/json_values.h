// Reading members of report objects. A member of any other type than the one asked for counts as
// absent; nothing here throws.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline {

std::optional<std::string> textMember(const nlohmann::json& object, std::string_view key);

std::string textMember(const nlohmann::json& object, std::string_view key,
                       std::string_view fallback);

/// Absent also for numbers with a fraction or an exponent and beyond 64 signed bits.
std::optional<std::int64_t> integerMember(const nlohmann::json& object, std::string_view key);

/// A text that holds a decimal integer and nothing else.
std::optional<std::int64_t> integerTextMember(const nlohmann::json& object, std::string_view key);

/// True only for the text "TRUE", as the power report writes its flags.
bool flagMember(const nlohmann::json& object, std::string_view key);

/// Absent when it is neither "TRUE" nor "FALSE".
std::optional<bool> knownFlagMember(const nlohmann::json& object, std::string_view key);

/// An empty object when absent.
const nlohmann::json& objectMember(const nlohmann::json& object, std::string_view key);

/// An empty array when absent; an array that holds anything but objects counts as absent.
const nlohmann::json& objectsMember(const nlohmann::json& object, std::string_view key);

} // namespace tamberline
