// Reads members of report objects. A member of a type other than the requested one counts as
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

/// Also absent for numbers with a fraction or an exponent and for those beyond 64 signed bits.
std::optional<std::int64_t> integerMember(const nlohmann::json& object, std::string_view key);

/// A text that contains a decimal integer and nothing else.
std::optional<std::int64_t> integerTextMember(const nlohmann::json& object, std::string_view key);

/// True only for the text "TRUE", as the power report writes its flags.
bool flagMember(const nlohmann::json& object, std::string_view key);

/// Absent if it is neither "TRUE" nor "FALSE".
std::optional<bool> knownFlagMember(const nlohmann::json& object, std::string_view key);

/// An empty object if absent.
const nlohmann::json& objectMember(const nlohmann::json& object, std::string_view key);

/// An empty array if absent; an array with anything but objects counts as absent.
const nlohmann::json& objectsMember(const nlohmann::json& object, std::string_view key);

} // namespace tamberline
