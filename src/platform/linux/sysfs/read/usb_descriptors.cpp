#include "platform/linux/sysfs/read/usb_descriptors.h"

#include "base/uuid.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tamberline::sysfs {
namespace {

unsigned byteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

/// Removes and returns the first descriptor; empty if the rest does not start with one.
std::string_view takeDescriptor(std::string_view& bytes) {
  constexpr std::size_t minLength = 2; // its length and its type
  const std::size_t length = bytes.empty() ? 0 : byteAt(bytes, 0);
  if (length < minLength || length > bytes.size()) {
    return {};
  }
  const std::string_view descriptor = bytes.substr(0, length);
  bytes.remove_prefix(length);
  return descriptor;
}

unsigned wordAt(std::string_view bytes, std::size_t index) {
  return byteAt(bytes, index) | byteAt(bytes, index + 1) << 8U;
}

constexpr unsigned deviceCapability = 0x10;

/// The type of a capability; absent if the descriptor is none.
std::optional<unsigned> capabilityType(std::string_view descriptor) {
  const bool isCapability = descriptor.size() > 2 && byteAt(descriptor, 1) == deviceCapability;
  return isCapability ? std::optional(byteAt(descriptor, 2)) : std::nullopt;
}

constexpr std::int64_t superSpeedMbps = 5000;

/// Of a SuperSpeed capability; 0 without any.
std::int64_t superSpeedIn(std::string_view capability) {
  constexpr std::size_t speedsOffset = 4;
  constexpr unsigned knowsSuperSpeed = 1U << 3U;
  const bool isListed = capability.size() >= speedsOffset + 2 &&
                        (wordAt(capability, speedsOffset) & knowsSuperSpeed) != 0;
  return isListed ? superSpeedMbps : 0;
}

/// A speed consists of a number and a unit: b/s, kb/s, Mb/s or Gb/s.
std::int64_t sublinkMbps(std::string_view attribute) {
  constexpr std::int64_t maxCredibleMbps = 100'000;
  const std::int64_t number = wordAt(attribute, 2);
  switch (byteAt(attribute, 0) >> 4U & 0x3U) {
  case 3:
    return std::min(number * 1000, maxCredibleMbps);
  case 2:
    return number;
  default:
    return 0; // below 1 Gb/s
  }
}

/// The highest speed of a SuperSpeedPlus capability; 0 without any.
std::int64_t superSpeedPlusIn(std::string_view capability) {
  constexpr std::size_t countOffset = 4;
  constexpr std::size_t speedsOffset = 12;
  constexpr std::size_t lengthOfSpeed = 4;
  if (capability.size() < speedsOffset) {
    return 0;
  }
  const std::size_t count = (byteAt(capability, countOffset) & 0x1FU) + 1;
  std::int64_t highest = 0;
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t offset = speedsOffset + index * lengthOfSpeed;
    if (offset + lengthOfSpeed <= capability.size()) {
      highest = std::max(highest, sublinkMbps(capability.substr(offset, lengthOfSpeed)));
    }
  }
  return highest;
}

/// The speeds that one descriptor after the other lists.
struct ListedSpeeds {
  std::int64_t highestMbps = 0;
  bool hasSuperSpeedPlus = false;

  void add(std::string_view descriptor) {
    constexpr unsigned superSpeed = 0x03;
    constexpr unsigned superSpeedPlus = 0x0A;
    const auto type = capabilityType(descriptor);
    if (type == superSpeed) {
      highestMbps = std::max(highestMbps, superSpeedIn(descriptor));
    } else if (type == superSpeedPlus) {
      highestMbps = std::max(highestMbps, superSpeedPlusIn(descriptor));
      hasSuperSpeedPlus = true;
    }
  }

  /// With SuperSpeedPlus a device may use two lanes, which is not listed.
  std::optional<std::int64_t> limitMbps() const {
    constexpr std::int64_t highSpeedMbps = 480;
    if (hasSuperSpeedPlus) {
      return std::nullopt;
    }
    return highestMbps == 0 ? highSpeedMbps : highestMbps;
  }

  std::optional<std::int64_t> provenMbps() const {
    return highestMbps >= superSpeedMbps ? std::optional(highestMbps) : std::nullopt;
  }
};

} // namespace

std::optional<std::int64_t> usbVersionIn(std::string_view descriptors) {
  constexpr unsigned deviceDescriptor = 0x01;
  constexpr std::size_t lengthOfDescriptor = 18;
  const std::string_view descriptor = takeDescriptor(descriptors);
  const bool isDevice =
      descriptor.size() >= lengthOfDescriptor && byteAt(descriptor, 1) == deviceDescriptor;
  return isDevice ? std::optional<std::int64_t>(wordAt(descriptor, 2)) : std::nullopt;
}

std::optional<UsbCapabilities> capabilitiesIn(std::string_view descriptors) {
  constexpr unsigned bosDescriptor = 0x0F;
  constexpr std::size_t lengthOfHeader = 5;
  const std::size_t size = descriptors.size();
  const std::string_view header = takeDescriptor(descriptors);
  if (header.size() < lengthOfHeader || byteAt(header, 1) != bosDescriptor) {
    return std::nullopt;
  }
  ListedSpeeds speeds;
  unsigned count = 0;
  for (std::string_view next = takeDescriptor(descriptors); !next.empty();
       next = takeDescriptor(descriptors)) {
    speeds.add(next);
    ++count;
  }
  const bool isComplete =
      descriptors.empty() && wordAt(header, 2) == size && byteAt(header, 4) == count;
  return UsbCapabilities{.provenMbps = speeds.provenMbps(),
                         .limitMbps = isComplete ? speeds.limitMbps() : std::nullopt};
}

std::optional<std::string> containerIdIn(std::string_view descriptors) {
  constexpr unsigned containerId = 0x04;
  constexpr std::size_t lengthOfContainerId = 20;
  constexpr std::size_t uuidOffset = 4;
  while (true) {
    const std::string_view descriptor = takeDescriptor(descriptors);
    if (descriptor.empty()) {
      return std::nullopt;
    }
    if (descriptor.size() >= lengthOfContainerId && capabilityType(descriptor) == containerId) {
      std::array<std::uint8_t, 16> uuid{};
      std::copy_n(descriptor.begin() + uuidOffset, uuid.size(), uuid.begin());
      const bool isNone = uuid == std::array<std::uint8_t, 16>{};
      return isNone ? std::nullopt : std::optional(uuidText(uuid, "0123456789ABCDEF"));
    }
  }
}

std::optional<std::int64_t> ratedMaIn(std::string_view descriptors, int configuration,
                                      bool isSuperSpeed) {
  constexpr unsigned configurationType = 0x02;
  constexpr std::size_t lengthOfConfiguration = 9;
  constexpr std::size_t valueOffset = 5;
  constexpr std::size_t maxPowerOffset = 8;
  const std::int64_t unitMa = isSuperSpeed ? 8 : 2;
  while (true) {
    const std::string_view descriptor = takeDescriptor(descriptors);
    if (descriptor.empty()) {
      return std::nullopt;
    }
    if (descriptor.size() >= lengthOfConfiguration && byteAt(descriptor, 1) == configurationType &&
        byteAt(descriptor, valueOffset) == static_cast<unsigned>(configuration)) {
      return byteAt(descriptor, maxPowerOffset) * unitMa;
    }
  }
}

} // namespace tamberline::sysfs
