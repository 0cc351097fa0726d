#pragma once

#include "tree/tree_node.h"
#include "views/badge.h"
#include "views/bars.h"
#include "views/colors.h"
#include "views/volume_row.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tamberline {

/// What a link truly carries, and how its row's tooltip says it.
struct LinkNote {
  TrueLink link = {};
  std::string text = {};
  std::optional<bool> isAuthorized = {};

  friend bool operator==(const LinkNote&, const LinkNote&) = default;
};

struct TBDeviceRow {
  std::string icon = {};
  std::string name = {};
  std::optional<Badge> modeBadge = {};
  std::optional<Badge> warningBadge = {};
  std::optional<std::string> ratedDraw = {};
  std::optional<SpeedBarRow> speedBar = {};
  std::optional<LinkNote> link = {};

  friend bool operator==(const TBDeviceRow&, const TBDeviceRow&) = default;
};

struct USBBusHeaderRow {
  std::string name = {};
  std::optional<std::string> ratedDraw = {};
  /// The controller, by which buses of one name can be told apart.
  std::optional<std::string> note = {};

  friend bool operator==(const USBBusHeaderRow&, const USBBusHeaderRow&) = default;
};

/// Why a link is slow: the title and the text of the popover.
struct SpeedNote {
  std::string title = {};
  std::string note = {};

  friend bool operator==(const SpeedNote&, const SpeedNote&) = default;
};

struct HubTotal {
  std::string text = {};
  std::string tooltip = {};

  friend bool operator==(const HubTotal&, const HubTotal&) = default;
};

struct USBDeviceDetailRow {
  std::string icon = {};
  std::string name = {};
  std::string speedText = {};
  Color speedColor = Color::orange;
  std::string speedTooltip = {};
  std::optional<SpeedNote> speedNote = {};
  std::optional<HubTotal> hubTotal = {};
  std::optional<SpeedBarRow> speedBar = {};
  std::optional<PowerBarRow> powerBar = {};
  std::vector<VolumeRow> volumes = {};
  /// What the name's tooltip says besides: extra current, built in, tunneled.
  std::optional<std::string> note = {};

  friend bool operator==(const USBDeviceDetailRow&, const USBDeviceDetailRow&) = default;
};

struct ChargerRow {
  std::string name = {};
  std::optional<std::string> rated = {};
  bool isCharging = false;

  /// What stands in the row where the adapter tells no name.
  std::string shownName() const;

  friend bool operator==(const ChargerRow&, const ChargerRow&) = default;
};

struct ChargingOnlyRow {
  std::string title = {};
  std::string detail = {};
  Badge badge = {};

  friend bool operator==(const ChargingOnlyRow&, const ChargingOnlyRow&) = default;
};

/// A faint colour behind a row.
struct Tint {
  Color color = Color::clear;
  double opacity = 0;

  friend bool operator==(const Tint&, const Tint&) = default;
};

/// One row of the tree below a card's header, with the rows that it opens onto.
struct ExpandableRow {
  using Content =
      std::variant<TBDeviceRow, USBBusHeaderRow, USBDeviceDetailRow, ChargerRow, ChargingOnlyRow>;

  std::string id = {};
  int depth = 0;
  bool isLast = false;
  /// Before anybody touched the row.
  bool startsExpanded = false;
  Tint tint = {};
  Content content = {};
  std::vector<ExpandableRow> children = {};
};

/// The rows of siblings, all at `depth`.
std::vector<ExpandableRow> expandableRows(const std::vector<TreeNode>& siblings, int depth);

USBBusHeaderRow usbBusHeaderRow(const USBBus& bus, const AggregatedPower& power);
ChargerRow chargerRow(const ChargerInfo& charger);

} // namespace tamberline
