#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

/// What a Thunderbolt or USB4 link carries, all lanes of a direction together; transmit is from
/// the computer to the device. The labels of ports and devices multiply what is a sum already in
/// some reports, and know no speed above 40 Gb/s. What nobody tells is absent.
struct TrueLink {
  std::optional<double> transmitGbps = {};
  std::optional<double> receiveGbps = {};
  std::optional<std::int64_t> transmitLanes = {};
  std::optional<std::int64_t> receiveLanes = {};

  /// Such as "Link each way: 40 Gb/s, 2 lanes"; empty when no speed is known.
  std::string label() const;

  friend bool operator==(const TrueLink&, const TrueLink&) = default;
};

} // namespace tamberline
