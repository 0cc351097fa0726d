#include "tree/tree_limits.h"

#include <algorithm>

namespace tamberline {
namespace {

/// The size of a list of nodes and everything below. Reals, so no product overflows.
struct Size {
  double nodes = 0;
  double text = 0;

  void add(const Size& other) {
    nodes += other.nodes;
    text += other.text;
  }

  /// The same below a path with so much text.
  Size behind(double pathText) const { return {nodes, text + nodes * pathText}; }
};

double textOf(const USBDevice& device) {
  return static_cast<double>(device.name.size() + device.vendorID.size() + device.productID.size() +
                             device.manufacturer.size() + device.serialNumber.value_or("").size());
}

double textOf(const ThunderboltDevice& device) {
  return static_cast<double>(device.name.size() + device.vendorName.size() + device.uid.size());
}

template <typename Device>
Size sizeOf(const SharedList<Device>& devices);

template <typename Device>
Size sizeOf(const Device& device) {
  Size size = sizeOf(device.children);
  size.nodes += 1;
  return size.behind(textOf(device));
}

template <typename Device>
Size sizeOf(const SharedList<Device>& devices) {
  Size size;
  for (const Device& device : devices) {
    size.add(sizeOf(device));
  }
  return size;
}

double maxPathText(const SharedList<ThunderboltDevice>& devices) {
  double longest = 0;
  for (const ThunderboltDevice& device : devices) {
    longest = std::max(longest, textOf(device) + maxPathText(device.children));
  }
  return longest;
}

Size sizeOfAddOnBuses(const PortTreeInputs& inputs) {
  double path = 0;
  for (const ThunderboltBus& bus : inputs.thunderboltBuses) {
    path = std::max(path, maxPathText(bus.connectedDevices));
  }
  Size size;
  for (const USBBus& bus : inputs.usbBuses) {
    if (!bus.isInternalTBController()) {
      Size ofBus = sizeOf(bus.devices);
      ofBus.nodes += 1;
      size.add(ofBus.behind(path + static_cast<double>(bus.rawName.size())));
    }
  }
  return size;
}

std::map<std::int64_t, Size> sizesByPort(const PortTreeInputs& inputs) {
  std::map<std::int64_t, Size> sizes;
  for (const USBBus& bus : inputs.usbBuses) {
    if (bus.isInternalTBController()) {
      for (const USBDevice& device : bus.devices) {
        sizes[device.physicalPort.value_or(-1)].add(sizeOf(device));
      }
    }
  }
  return sizes;
}

} // namespace

bool exceedsTreeLimits(const PortTreeInputs& inputs) {
  const std::map<std::int64_t, Size> ofPorts = sizesByPort(inputs);
  Size size = sizeOfAddOnBuses(inputs);
  for (const ThunderboltBus& bus : inputs.thunderboltBuses) {
    size.nodes += 1;
    size.add(sizeOf(bus.connectedDevices));
    if (const auto found = ofPorts.find(bus.busNumber); found != ofPorts.end()) {
      size.add(found->second);
    }
  }
  return size.nodes > static_cast<double>(maxTreeNodes) ||
         size.text > static_cast<double>(maxTreeText);
}

} // namespace tamberline
