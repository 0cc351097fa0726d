#include "platform/linux/sysfs/read/usb_address.h"

#include "base/text.h"

#include <algorithm>
#include <cstdint>

namespace tamberline::sysfs {
namespace {

/// Well above the six ports that USB allows in a path.
constexpr std::size_t maxPorts = 16;
constexpr std::int64_t maxNumber = 65535;

/// A number from 1 to `maxNumber`, written in digits only.
std::optional<int> countingNumber(std::string_view text) {
  const auto number = parseDecimal(text);
  const bool isSpelled = text.find_first_not_of("0123456789") == std::string_view::npos;
  if (!number || !isSpelled || *number < 1 || *number > maxNumber) {
    return std::nullopt;
  }
  return static_cast<int>(*number);
}

} // namespace

UsbAddress UsbAddress::parent() const {
  UsbAddress above = *this;
  above.ports.pop_back();
  return above;
}

std::string UsbAddress::name() const {
  if (isRootHub()) {
    return "usb" + std::to_string(bus);
  }
  std::string text = std::to_string(bus);
  char separator = '-';
  for (const int port : ports) {
    text += separator + std::to_string(port);
    separator = '.';
  }
  return text;
}

std::optional<UsbAddress> usbAddressOf(std::string_view deviceName) {
  const std::size_t dash = deviceName.find('-');
  const bool isRootHub = dash == std::string_view::npos && deviceName.starts_with("usb");
  if (dash == std::string_view::npos && !isRootHub) {
    return std::nullopt;
  }
  const auto bus = countingNumber(isRootHub ? deviceName.substr(3) : deviceName.substr(0, dash));
  if (!bus) {
    return std::nullopt;
  }
  UsbAddress address{.bus = *bus};
  if (isRootHub) {
    return address;
  }
  for (const std::string_view piece : split(deviceName.substr(dash + 1), '.')) {
    const auto port = countingNumber(piece);
    if (!port || address.ports.size() == maxPorts) {
      return std::nullopt;
    }
    address.ports.push_back(*port);
  }
  return address;
}

std::optional<UsbAddress> usbAddressOfPort(std::string_view portName) {
  constexpr std::string_view separator = "-port";
  const std::size_t position = portName.rfind(separator);
  if (position == std::string_view::npos) {
    return std::nullopt;
  }
  auto address = usbAddressOf(portName.substr(0, position));
  const auto port = countingNumber(portName.substr(position + separator.size()));
  if (!address || !port || address->ports.size() == maxPorts) {
    return std::nullopt;
  }
  address->ports.push_back(*port);
  return address;
}

} // namespace tamberline::sysfs
