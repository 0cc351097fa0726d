#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// A device that a machine must have. A device is meant if every member of the first group that is
/// present describes it; the second group says how it must be attached.
struct Expectation {
  std::optional<std::string> name = {};
  /// Such as "0x05ac"; both or neither.
  std::optional<std::string> vendorID = {};
  std::optional<std::string> productID = {};
  /// Of a Thunderbolt device, its unique identifier.
  std::optional<std::string> serialNumber = {};

  /// The number of the machine's port, from 1.
  std::optional<std::int64_t> port = {};
  std::optional<double> minGbps = {};
  /// The names of volumes that must be mounted from it.
  std::vector<std::string> volumes = {};

  friend bool operator==(const Expectation&, const Expectation&) = default;
};

} // namespace tamberline
