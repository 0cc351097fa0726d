#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace tamberline {

/// Container identifiers by USB location: the registry's information about which devices are in one
/// physical box. A location is a 32-bit quantity. The registry may write one above 0x7fffffff as a
/// negative number while the USB report writes it in hexadecimal, so both spellings are looked up.
class ContainerIDs {
public:
  /// Keeps the first identifier for a location.
  void add(std::int64_t locationID, const std::string& containerID);

  std::optional<std::string> find(std::int64_t locationID) const;

  std::size_t size() const { return identifiers_.size(); }

private:
  std::unordered_map<std::int64_t, std::string> identifiers_;
  std::unordered_map<std::int64_t, std::string> identifiersByUnsignedLocation_;
};

} // namespace tamberline
