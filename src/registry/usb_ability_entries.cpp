#include "registry/bounded_values.h"
#include "registry/probe_results.h"
#include "registry/registry_entries.h"

#include <algorithm>

namespace tamberline {
namespace {

constexpr double megabits = 1000;
constexpr double fullSpeedGbps = 0.012;
constexpr double highSpeedGbps = 0.48;
constexpr double superSpeedGbps = 5;

/// By the USB version in a device's descriptor. A device that knows USB 3 says at least 2.1 at USB
/// 2 speed, and 3 or more otherwise.
std::optional<double> limitOfVersion(std::optional<std::int64_t> version) {
  constexpr std::int64_t usb2 = 0x0200;
  if (!version || *version > usb2) {
    return std::nullopt;
  }
  return *version == usb2 ? highSpeedGbps : fullSpeedGbps;
}

std::optional<double> provenByVersion(std::optional<std::int64_t> version) {
  constexpr std::int64_t usb3 = 0x0300;
  return version && *version >= usb3 ? std::optional(superSpeedGbps) : std::nullopt;
}

std::optional<double> namedLinkSpeed(PropertyListValue entry) {
  static constexpr std::array<double, 6> speeds = {fullSpeedGbps,  0.0015, highSpeedGbps,
                                                   superSpeedGbps, 10,     20};
  const auto number =
      within(entry.member("USBSpeed").integer(), 1, static_cast<std::int64_t>(speeds.size()));
  return number ? std::optional(speeds[static_cast<std::size_t>(*number) - 1]) : std::nullopt;
}

std::optional<double> linkSpeed(PropertyListValue entry) {
  constexpr std::int64_t maxBitsPerSecond = 1'000'000'000'000;
  constexpr double bitsPerGigabit = 1e9;
  const auto exact = dividedBy(within(entry.member("UsbLinkSpeed").integer(), 1, maxBitsPerSecond),
                               bitsPerGigabit);
  return exact ? exact : namedLinkSpeed(entry);
}

/// A limit below the speed of the link is wrong.
std::optional<double> soundLimit(const std::optional<double>& limit,
                                 const std::optional<double>& link) {
  return limit && link && *limit < *link ? std::nullopt : limit;
}

/// The speeds and the authorisation are in keys that no Mac has.
USBAbility readAbility(PropertyListValue entry) {
  constexpr std::int64_t maxVersion = 0xFFFF;
  constexpr std::int64_t maxMegabits = 1'000'000;
  const auto speedMember = [&](std::string_view key) {
    return dividedBy(within(entry.member(key).integer(), 1, maxMegabits), megabits);
  };
  const auto version = within(entry.member("bcdUSB").integer(), 0, maxVersion);
  const auto limit = speedMember("TamberlineLimitMbps");
  const auto link = linkSpeed(entry);
  return USBAbility{
      .provenGbps = std::max({speedMember("TamberlineProvenMbps"), provenByVersion(version), link}),
      .limitGbps = soundLimit(limit ? limit : limitOfVersion(version), link),
      .usbVersion = version,
      .linkGbps = link,
      .isAuthorized = entry.member("TamberlineIsAuthorized").boolean(),
  };
}

} // namespace

USBAbilities usbAbilitiesIn(const PropertyList& dump) {
  USBAbilities abilities;
  visitRegistryEntries(dump.root(), [&](PropertyListValue entry) {
    const auto locationID = entry.member("locationID").integer();
    const USBAbility ability = locationID ? readAbility(entry) : USBAbility();
    if (ability != USBAbility()) {
      abilities.add(*locationID, ability);
    }
  });
  return abilities;
}

} // namespace tamberline
