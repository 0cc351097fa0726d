#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace tamberline {

/// Container identifiers by USB location: the registry's word on which devices are one physical
/// box. A location is a 32-bit quantity; the registry may write one above 0x7fffffff as a negative
/// number while the USB report writes it in hexadecimal, so what is not found as it is spelled is
/// looked for in the other spelling.
class ContainerIDs {
public:
  /// Keeps the first identifier of a location.
  void add(std::int64_t locationID, const std::string& containerID);

  std::optional<std::string> find(std::int64_t locationID) const;

  std::size_t size() const { return identifiers_.size(); }

private:
  std::unordered_map<std::int64_t, std::string> identifiers_;
  std::unordered_map<std::int64_t, std::string> identifiersByUnsignedLocation_;
};

} // namespace tamberline
