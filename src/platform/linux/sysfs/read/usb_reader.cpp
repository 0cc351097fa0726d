#include "base/text.h"
#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/device_folders.h"
#include "platform/linux/sysfs/read/device_readers.h"
#include "platform/linux/sysfs/read/pci_path.h"
#include "platform/linux/sysfs/read/plain_text.h"
#include "platform/linux/sysfs/read/udev_properties.h"
#include "platform/linux/sysfs/read/usb_descriptors.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t maxDescriptorBytes = 65536;

/// The active configuration, from the folder names of its interfaces ("1-4:1.0"), because reading
/// its attribute would wait for the device. Absent if there is no interface.
std::optional<int> activeConfiguration(const fs::path& folder, const UsbAddress& address) {
  const std::string prefix = address.name() + ":";
  for (const std::string& name : namesIn(folder)) {
    if (name.starts_with(prefix)) {
      const std::string_view rest = std::string_view(name).substr(prefix.size());
      const auto number = parseDecimal(rest.substr(0, rest.find('.')));
      return number && *number >= 0 && *number <= 255 ? std::optional(static_cast<int>(*number))
                                                      : std::nullopt;
    }
  }
  return std::nullopt;
}

/// The kernel holds the descriptors of a device from the moment it was plugged in.
void readDescriptors(const fs::path& folder, const UsbAddress& address, UsbDevice& device) {
  const std::string descriptors = readBytes(folder / "descriptors", maxDescriptorBytes);
  device.usbVersion = usbVersionIn(descriptors);
  if (const auto configuration = activeConfiguration(folder, address)) {
    device.ratedMa = ratedMaIn(descriptors, *configuration, device.isSuperSpeed());
  }
  const std::string bos = readBytes(folder / "bos_descriptors", maxDescriptorBytes);
  device.capabilities = capabilitiesIn(bos);
  if (device.isHub) {
    device.descriptorContainerId = containerIdIn(bos);
  }
}

/// Reads only what the kernel returns at once, even if the device no longer answers.
UsbDevice readDevice(const fs::path& folder, const UsbAddress& address) {
  constexpr const char* hubClass = "09";
  constexpr const char* billboardClass = "11";
  const std::string deviceClass = readTextOrNothing(folder / "bDeviceClass");
  UsbDevice device{
      .vendorId = readTextOrNothing(folder / "idVendor"),
      .productId = readTextOrNothing(folder / "idProduct"),
      .megabitsPerSecond = readTextOrNothing(folder / "speed"),
      .isHub = deviceClass == hubClass,
      .isBillboard = deviceClass == billboardClass,
  };
  const auto authorized = readNumber(folder / "authorized");
  device.isAuthorized = authorized ? std::optional(*authorized > 0) : std::nullopt;
  readDescriptors(folder, address, device);
  return device;
}

/// The kernel's name for the controller of a root hub, derived from its driver. Reading the hub's
/// own texts could block while the kernel tries a device on one of its ports.
std::string controllerName(const fs::path& controller) {
  const std::string driver = linkedName(controller / "driver").value_or("");
  for (const auto& [part, name] : {std::pair("xhci", "xHCI Host Controller"),
                                   {"ehci", "EHCI Host Controller"},
                                   {"ohci", "OHCI Host Controller"},
                                   {"uhci", "UHCI Host Controller"},
                                   {"vhci", "USB/IP Virtual Host Controller"}}) {
    if (contains(driver, part)) {
      return name;
    }
  }
  return "USB Host Controller";
}

/// The folder of the controller that a root hub belongs to.
fs::path controllerOf(const fs::path& rootHub) {
  return rootHub.parent_path() / linkTarget(rootHub).value_or("").parent_path();
}

void nameRootHub(const fs::path& folder, UsbDevice& device) {
  const fs::path controller = controllerOf(folder);
  device.name = controllerName(controller);
  device.serialNumber = plainText(controller.filename().string());
}

/// Distinguishes the device from earlier ones at the same address: the kernel reuses a device
/// number on a bus only after all others.
std::string identityOf(const fs::path& folder, const UsbAddress& address, const UsbDevice& device) {
  std::string identity = address.name();
  for (const char* name : {"devnum", "bcdDevice", "authorized"}) {
    identity += " " + readTextOrNothing(folder / name);
  }
  return identity + " " + device.vendorId + ":" + device.productId;
}

/// The texts that udev read when the device was plugged in. udev replaces some characters of a
/// serial number with "_".
UsbTexts textsOfUdev(const fs::path& folder, const fs::path& udevData) {
  const std::string record = udevRecord(udevData, "c" + readTextOrNothing(folder / "dev"));
  return {
      .product = plainText(withoutHexEscapes(propertyIn(record, "ID_MODEL_ENC"))),
      .manufacturer = plainText(withoutHexEscapes(propertyIn(record, "ID_VENDOR_ENC"))),
      .serialNumber = plainText(propertyIn(record, "ID_SERIAL_SHORT")),
      .ratedMa = {},
  };
}

void applyTexts(UsbTexts texts, UsbDevice& device) {
  device.name = std::move(texts.product);
  device.manufacturer = std::move(texts.manufacturer);
  device.serialNumber = std::move(texts.serialNumber);
  if (!device.ratedMa) {
    device.ratedMa = texts.ratedMa;
  }
}

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

/// The folder of a hub's only interface, which contains its ports.
fs::path portsFolder(const fs::path& hubFolder, const UsbAddress& hub) {
  return hubFolder / ((hub.isRootHub() ? std::to_string(hub.bus) + "-0" : hub.name()) + ":1.0");
}

UsbPort readPort(const fs::path& folder) {
  const auto peer = linkedName(folder / "peer");
  return {.connector = linkedConnector(folder),
          .peer = peer ? usbAddressOfPort(*peer) : std::nullopt,
          .location = physicalLocation(folder),
          .isHardwired = readTextOrNothing(folder / "connect_type") == "hardwired",
          .overCurrentCount = readNumber(folder / "over_current_count"),
          .state = readTextOrNothing(folder / "state")};
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

class Reader {
public:
  Reader(const MachinePaths& paths, const HardwareDatabase& database)
      : paths_(paths), database_(database), folder_(busFolder(paths.sysfs, "usb")) {}

  UsbTopology read(UsbStringCache& texts) {
    for (const std::string& name : namesIn(folder_)) {
      if (const auto address = usbAddressOf(name)) {
        add(*address);
      }
    }
    applyAnswers(texts.textsOf(asked_));
    markBuiltInControllers();
    return std::move(usb_);
  }

private:
  void add(const UsbAddress& address) {
    const fs::path folder = folder_ / address.name();
    UsbDevice device = readDevice(folder, address);
    if (device.vendorId.empty() && device.megabitsPerSecond.empty()) {
      return; // unplugged while it was read
    }
    if (device.isHub) {
      readPorts(folder, address, usb_);
    }
    if (address.isRootHub()) {
      nameRootHub(folder, device);
      controllers_.emplace(address, pciPathOf(controllerOf(folder)));
    } else {
      asked_.push_back({identityOf(folder, address, device), folder, address.bus, device.isHub});
      addresses_.push_back(address);
    }
    usb_.devices.insert_or_assign(address, std::move(device));
  }

  void applyAnswers(const std::map<std::string, UsbTexts>& answers) {
    for (std::size_t index = 0; index < asked_.size(); ++index) {
      UsbDevice& device = usb_.devices.at(addresses_[index]);
      const auto answer = answers.find(asked_[index].identity);
      applyTexts(answer == answers.end() ? textsOfUdev(asked_[index].folder, paths_.udevData)
                                         : answer->second,
                 device);
      nameByDatabase(device, database_);
    }
  }

  /// Firmware marks controllers that can be unplugged, but not built-in ones. If it marks none,
  /// only those that are not behind a bridge are certain to be built in.
  void markBuiltInControllers() {
    const bool isMarkedByFirmware =
        std::any_of(controllers_.begin(), controllers_.end(),
                    [](const auto& entry) { return entry.second.isRemovable(); });
    for (const auto& [address, path] : controllers_) {
      usb_.devices.at(address).isOnBuiltInController =
          path.isEmpty() || path.isOnRootBus() || (isMarkedByFirmware && !path.isRemovable());
    }
  }

  const MachinePaths& paths_;
  const HardwareDatabase& database_;
  fs::path folder_;
  UsbTopology usb_;
  std::vector<UsbStringCache::Device> asked_; // parallel to `addresses_`
  std::vector<UsbAddress> addresses_;
  std::map<UsbAddress, PciPath> controllers_; // of the root hubs
};

} // namespace

UsbTopology readUsb(const MachinePaths& paths, const HardwareDatabase& database,
                    UsbStringCache& texts) {
  return Reader(paths, database).read(texts);
}

} // namespace tamberline::sysfs
