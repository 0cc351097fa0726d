#pragma once

#include "model/power_records.h"
#include "tree/tree_node.h"
#include "views/badge.h"
#include "views/bars.h"
#include "views/tree_rows.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// What the scanner knows about the ports beside the tree; see PortScanner.
struct PortFacts {
  std::vector<HPMPort> hpmPorts = {};
  std::map<std::int64_t, PortPowerOut> portPowerOut = {};
  std::map<std::int64_t, std::int64_t> portCurrentLimitMa = {};
};

struct PortBadge {
  enum class Kind : std::uint8_t { capacity, charger, video, cable, speed };
  Kind kind = Kind::capacity;
  Badge badge = {};

  friend bool operator==(const PortBadge&, const PortBadge&) = default;
};

/// The live measured power of a port.
struct MeasuredPower {
  std::string used = {};
  std::optional<std::string> allocated = {};
  std::string voltageCurrent = {};
  TriBar bar = {};
  std::string tooltip = {};

  friend bool operator==(const MeasuredPower&, const MeasuredPower&) = default;
};

/// What both ends of a port's connection agreed on, which is no measurement.
struct AgreedPowerRow {
  AgreedPower power = {};
  std::string watts = {};
  std::string voltageCurrent = {};
  std::string tooltip = {};

  friend bool operator==(const AgreedPowerRow&, const AgreedPowerRow&) = default;
};

/// Something on a port that is neither a device nor an adapter in use.
struct PartnerNotice {
  std::string icon = {};
  std::string title = {};
  std::string detail = {};

  friend bool operator==(const PartnerNotice&, const PartnerNotice&) = default;
};

/// The card of one physical port. Parts that are not shown are absent.
struct PortCard {
  std::string id = {};
  bool inUse = false;
  std::string dotTooltip = {};
  std::string title = {};
  /// What the title does not say: the sockets where their numbers are others, and the true link.
  std::optional<std::string> titleNote = {};
  std::optional<std::string> itemCount = {};
  std::optional<std::string> itemCountTooltip = {};
  std::vector<PortBadge> badges = {};
  std::optional<MeasuredPower> measuredPower = {};
  std::optional<AgreedPowerRow> agreedPower = {};
  std::optional<PowerBarRow> portPowerBar = {};
  std::vector<ExpandableRow> rows = {};
  std::optional<PartnerNotice> partner = {}; // where there are no rows
  std::optional<std::string> nothingAttached = {};
};

/// `node` carries the bus of a port (`bus` is the same one).
PortCard portCard(const TreeNode& node, const ThunderboltBus& bus, const PortFacts& facts);

} // namespace tamberline
