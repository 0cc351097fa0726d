#include "platform/linux_devices/usb_reader.h"

#include "platform/linux_devices/attribute_files.h"
#include "platform/linux_devices/device_folders.h"

#include <string>
#include <string_view>
#include <utility>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostDescriptorBytes = 65536;

void nameByDatabase(UsbDevice& device, const HardwareDatabase& database) {
  if ((device.name.empty() || device.manufacturer.empty()) && !device.vendorId.empty()) {
    HardwareNames names = database(device.vendorId, device.productId);
    if (device.name.empty()) {
      device.name = std::move(names.model);
    }
    if (device.manufacturer.empty()) {
      device.manufacturer = std::move(names.vendor);
    }
  }
}

UsbDevice readDevice(const fs::path& folder, const HardwareDatabase& database) {
  UsbDevice device{
      .name = readTextOrNothing(folder / "product"),
      .manufacturer = readTextOrNothing(folder / "manufacturer"),
      .vendorId = readTextOrNothing(folder / "idVendor"),
      .productId = readTextOrNothing(folder / "idProduct"),
      .serialNumber = readTextOrNothing(folder / "serial"),
      .megabitsPerSecond = readTextOrNothing(folder / "speed"),
      .ratedMa = readNumber(folder / "bMaxPower"),
      .isHub = readTextOrNothing(folder / "bDeviceClass") == "09",
  };
  if (device.isHub) {
    device.descriptorContainerId =
        containerIdIn(readBytes(folder / "bos_descriptors", mostDescriptorBytes));
  }
  nameByDatabase(device, database);
  return device;
}

/// The folder of a hub's only interface holds its ports.
fs::path portsFolder(const fs::path& hubFolder, const UsbAddress& hub) {
  return hubFolder / ((hub.isRootHub() ? std::to_string(hub.bus) + "-0" : hub.name()) + ":1.0");
}

UsbPort readPort(const fs::path& folder) {
  const auto peer = linkedName(folder / "peer");
  return {.connector = tiedConnector(folder),
          .peer = peer ? usbAddressOfPort(*peer) : std::nullopt,
          .location = physicalLocation(folder)};
}

void readPorts(const fs::path& hubFolder, const UsbAddress& hub, UsbTopology& usb) {
  const fs::path folder = portsFolder(hubFolder, hub);
  for (const std::string& name : namesIn(folder)) {
    const auto address = usbAddressOfPort(name);
    if (address && address->parent() == hub) {
      usb.ports.insert_or_assign(*address, readPort(folder / name));
    }
  }
}

unsigned byteAt(std::string_view bytes, std::size_t index) {
  return static_cast<unsigned char>(bytes[index]);
}

std::string uuidText(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (std::size_t index = 0; index < bytes.size(); ++index) {
    if (index == 4 || index == 6 || index == 8 || index == 10) {
      text += '-';
    }
    text += digits[byteAt(bytes, index) >> 4U];
    text += digits[byteAt(bytes, index) & 0xFU];
  }
  return text;
}

} // namespace

UsbTopology readUsb(const fs::path& sysfs, const HardwareDatabase& database) {
  const fs::path folder = busFolder(sysfs, "usb");
  UsbTopology usb;
  for (const std::string& name : namesIn(folder)) {
    const auto address = usbAddressOf(name);
    if (!address) {
      continue;
    }
    UsbDevice device = readDevice(folder / name, database);
    if (device.vendorId.empty() && device.megabitsPerSecond.empty()) {
      continue; // it was pulled while it was read
    }
    if (device.isHub) {
      readPorts(folder / name, *address, usb);
    }
    usb.devices.insert_or_assign(*address, std::move(device));
  }
  return usb;
}

std::optional<std::string> containerIdIn(std::string_view descriptors) {
  constexpr unsigned deviceCapability = 0x10;
  constexpr unsigned containerId = 0x04;
  constexpr std::size_t lengthOfContainerId = 20;
  constexpr std::size_t uuidOffset = 4;
  constexpr std::size_t uuidLength = 16;
  while (descriptors.size() >= 3) {
    const std::size_t length = byteAt(descriptors, 0);
    if (length < 3 || length > descriptors.size()) {
      return std::nullopt;
    }
    if (byteAt(descriptors, 1) == deviceCapability && byteAt(descriptors, 2) == containerId &&
        length >= lengthOfContainerId) {
      const std::string_view uuid = descriptors.substr(uuidOffset, uuidLength);
      const bool isNone = uuid.find_first_not_of('\0') == std::string_view::npos;
      return isNone ? std::nullopt : std::optional(uuidText(uuid));
    }
    descriptors.remove_prefix(length);
  }
  return std::nullopt;
}

} // namespace tamberline::sysfs
