// Which values of reports and dumps identify a machine, a device or a person, judged by their keys.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tamberline {

enum class SecretKind : std::uint8_t {
  identifier, // serial numbers, unique and container identifiers, network addresses
  volumeName,
  mountPoint,
  hostName,
};

/// Absent if the value under the key identifies nothing by itself.
std::optional<SecretKind> secretKindOf(std::string_view key);

/// Whether the value is a token or a number that the parsers read. Such a value stays even if a
/// volume has the same name; otherwise a volume could change what the report says.
bool isToken(std::string_view key);

} // namespace tamberline
