#pragma once

#include "base/shared_list.h"
#include "base/uuid.h"
#include "model/true_link.h"
#include "model/usb_records.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// The receptacle state of one host port. All fields are the report's raw texts, empty when the
/// report has none.
struct ThunderboltPort {
  std::string status;
  std::string speed;
  std::string linkWidth;
  /// Absent where nothing is connected or no speed is told.
  std::optional<TrueLink> link = {};

  bool isConnected() const;
  /// Per lane; 0 when the report's text names no known speed.
  std::int64_t speedGbps() const;
  std::int64_t laneCount() const;
  std::int64_t totalBandwidthGbps() const;
  /// The speed of one lane and, for two lanes, their number; empty when the speed is unknown.
  std::string badgeText() const;
};

/// One device of a chain, with the devices behind it. Texts are the report's own, empty when it
/// has none.
struct ThunderboltDevice {
  Uuid id = Uuid::random();
  std::string name = {};
  std::string vendorName = {};
  std::string mode = {};
  std::string uid = {};
  std::string firmwareVersion = {};
  std::string upstreamSpeed = {};
  std::string upstreamWidth = {};
  /// Of its link upstream; absent where no speed is told.
  std::optional<TrueLink> link = {};
  SharedList<ThunderboltDevice> children = {};
  /// What is on the PCI bus that the device is connected to by.
  std::vector<USBDevice> drives = {};
  /// Whether the computer lets it use that bus; absent where there is no such choice.
  std::optional<bool> isAuthorized = {};

  std::string modeLabel() const;
  /// Per lane; 0 when the report's text names no known speed.
  std::int64_t upstreamSpeedGbps() const;
  std::int64_t upstreamLanes() const;
  /// The speed of one lane and, for two lanes, the sum too; empty when the speed is unknown.
  std::string upstreamLabel() const;
};

/// One of the sockets that a host port serves.
struct ThunderboltReceptacle {
  /// As the computer counts its sockets, from 1; absent when the report has none.
  std::optional<std::int64_t> number = {};
  ThunderboltPort port = {};
};

/// One host Thunderbolt/USB4 port of the Thunderbolt report.
struct ThunderboltBus {
  Uuid id = Uuid::random();
  /// 0-based as the report numbers it; the copies in the port tree carry the 1-based port number.
  std::int64_t busNumber = 0;
  std::string hostName = {};
  std::string uid = {};
  ThunderboltPort port = {};
  SharedList<ThunderboltDevice> connectedDevices = {};
  /// All sockets, in the report's order; `port` is the state of the first. A controller of two
  /// sockets is one port here.
  std::vector<ThunderboltReceptacle> receptacles = {};

  std::string displayName() const;
};

} // namespace tamberline
