#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

/// The actual speed of a Thunderbolt or USB4 link, all lanes of a direction together; transmit is
/// from the computer to the device. The labels of ports and devices cannot show it: they multiply
/// numbers that are already sums in some reports, and have no speed above 40 Gb/s. Unreported
/// values are absent.
struct TrueLink {
  std::optional<double> transmitGbps = {};
  std::optional<double> receiveGbps = {};
  std::optional<std::int64_t> transmitLanes = {};
  std::optional<std::int64_t> receiveLanes = {};

  /// Such as "Link each way: 40 Gb/s, 2 lanes"; empty if no speed is known.
  std::string label() const;

  friend bool operator==(const TrueLink&, const TrueLink&) = default;
};

} // namespace tamberline
