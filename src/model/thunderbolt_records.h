#pragma once

#include "base/shared_list.h"
#include "base/uuid.h"
#include "model/device_ability.h"
#include "model/true_link.h"
#include "model/usb_records.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// The receptacle state of one host port. All fields are the report's raw texts, empty if the
/// report has none.
struct ThunderboltPort {
  std::string status;
  std::string speed;
  std::string linkWidth;
  /// Absent if nothing is connected or no speed is reported.
  std::optional<TrueLink> link = {};

  bool isConnected() const;
  /// Per lane; 0 if the report's text contains no known speed.
  std::int64_t speedGbps() const;
  std::int64_t laneCount() const;
  std::int64_t totalBandwidthGbps() const;
  /// The speed of one lane, with the number of lanes if there are two; empty if the speed is
  /// unknown.
  std::string badgeText() const;
};

/// One device of a chain, with the devices behind it. Texts are from the report, empty if it has
/// none.
struct ThunderboltDevice {
  Uuid id = Uuid::random();
  std::string name = {};
  std::string vendorName = {};
  std::string mode = {};
  std::string uid = {};
  std::string firmwareVersion = {};
  std::string upstreamSpeed = {};
  std::string upstreamWidth = {};
  /// Of its upstream link; absent if no speed is reported.
  std::optional<TrueLink> link = {};
  SharedList<ThunderboltDevice> children = {};
  /// The drives on the PCI bus of the device.
  std::vector<USBDevice> drives = {};
  /// Whether the computer lets it use that bus; absent if there is no such choice.
  std::optional<bool> isAuthorized = {};
  /// The most that its upstream link can be; absent if nothing is known.
  std::optional<LinkLimit> linkLimit = {};

  std::string modeLabel() const;
  /// Per lane; 0 if the report's text contains no known speed.
  std::int64_t upstreamSpeedGbps() const;
  std::int64_t upstreamLanes() const;
  /// The speed of one lane, and with two lanes also the sum; empty if the speed is unknown.
  std::string upstreamLabel() const;
};

/// One of the sockets that a host port serves.
struct ThunderboltReceptacle {
  /// As the computer numbers its sockets, from 1; absent if the report has none.
  std::optional<std::int64_t> number = {};
  ThunderboltPort port = {};
};

/// One host Thunderbolt/USB4 port of the Thunderbolt report.
struct ThunderboltBus {
  Uuid id = Uuid::random();
  /// 0-based as in the report; the copies in the port tree have the 1-based port number.
  std::int64_t busNumber = 0;
  std::string hostName = {};
  std::string uid = {};
  ThunderboltPort port = {};
  SharedList<ThunderboltDevice> connectedDevices = {};
  /// All sockets, in the report's order; `port` is the state of the first. A controller with two
  /// sockets counts as one port.
  std::vector<ThunderboltReceptacle> receptacles = {};

  std::string displayName() const;
};

} // namespace tamberline
