#pragma once

#include "base/uuid.h"
#include "model/power_records.h"
#include "model/thunderbolt_records.h"
#include "model/usb_records.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tamberline {

/// Currents in mA of a node and everything below it, as the USB devices declare them.
struct AggregatedPower {
  std::int64_t usedMa = 0;
  std::int64_t allocMa = 0;
};

/// One node of the port tree: a hardware record and everything below it. A plain value.
struct TreeNode {
  /// A physical port; its bus carries the 1-based port number.
  struct TBPort {
    ThunderboltBus bus;
  };
  struct TBDevice {
    ThunderboltDevice device;
  };
  /// An add-on bus, such as the one inside a dock, or a separate bus.
  struct USBBusEntry {
    USBBus bus;
  };
  /// A device with the max speed of its bus and the current budget of its port.
  struct USBDeviceEntry {
    USBDevice device;
    double busMaxGbps = 0;
    std::int64_t portMa = 0;
  };
  struct Charger {
    ChargerInfo charger;
  };
  /// Marks a port that powers a device that offers no data.
  struct ChargingOnly {};

  using Kind = std::variant<TBPort, TBDevice, USBBusEntry, USBDeviceEntry, Charger, ChargingOnly>;

  explicit TreeNode(Kind nodeKind, std::vector<TreeNode> nodeChildren = {});

  /// Random until assignStableIDs replaces it with a path that is the same in every scan.
  std::string id;
  Kind kind;
  std::vector<TreeNode> children;

  bool hasChildren() const { return !children.empty(); }
  /// The key among its siblings, from which the stable identifier is made.
  std::string localKey() const;
  /// Devices, adapters and charging-only markers below this node; buses do not count.
  std::int64_t attachedItemCount() const;
  bool isConnected() const;
  AggregatedPower aggregatedUSBPower() const;
};

} // namespace tamberline
