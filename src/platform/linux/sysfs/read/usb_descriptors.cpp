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

} // namespace

std::optional<std::string> containerIdIn(std::string_view descriptors) {
  constexpr unsigned deviceCapability = 0x10;
  constexpr unsigned containerId = 0x04;
  constexpr std::size_t lengthOfContainerId = 20;
  constexpr std::size_t uuidOffset = 4;
  while (true) {
    const std::string_view descriptor = takeDescriptor(descriptors);
    if (descriptor.empty()) {
      return std::nullopt;
    }
    if (descriptor.size() >= lengthOfContainerId && byteAt(descriptor, 1) == deviceCapability &&
        byteAt(descriptor, 2) == containerId) {
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
