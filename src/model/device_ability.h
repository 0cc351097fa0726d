#pragma once

#include <cstdint>
#include <optional>

namespace tamberline {

/// What a USB device says about itself, whatever its connection allows. Absent values are unknown.
struct USBAbility {
  /// The highest speed that its descriptors list for one lane, or that of its link if that is
  /// higher. With two lanes it may reach more, which descriptors do not say.
  std::optional<double> provenGbps = {};
  /// The speed that it can never exceed.
  std::optional<double> limitGbps = {};
  /// The USB version in its descriptor in hexadecimal digits: 0x0210 is 2.1. A USB 3 device that
  /// runs at USB 2 speed says 2.1, and so do many that only know USB 2.
  std::optional<std::int64_t> usbVersion = {};
  /// Its negotiated speed, if the registry has it.
  std::optional<double> linkGbps = {};
  /// Whether the computer uses it; false if it is blocked.
  std::optional<bool> isAuthorized = {};

  friend bool operator==(const USBAbility&, const USBAbility&) = default;
};

/// The most that both ends of a Thunderbolt or USB4 link can do. Absent values are unknown.
struct LinkLimit {
  std::optional<std::int64_t> lanes = {};
  std::optional<double> gbpsOfLane = {};

  friend bool operator==(const LinkLimit&, const LinkLimit&) = default;
};

} // namespace tamberline
