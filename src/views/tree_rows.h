#pragma once

#include "tree/tree_node.h"
#include "views/badge.h"
#include "views/bars.h"
#include "views/shown_labels.h"
#include "views/view_enums.h"
#include "views/volume_row.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tamberline {

/// The actual speed of a link, with the wording for the row's tooltip.
struct LinkNote {
  TrueLink link = {};
  std::string text = {};
  std::optional<bool> isAuthorized = {};

  friend bool operator==(const LinkNote&, const LinkNote&) = default;
};

struct TBDeviceRow {
  Q_GADGET
  QML_VALUE_TYPE(tbDeviceRow)
  Q_PROPERTY(QString icon READ iconName CONSTANT)
  Q_PROPERTY(tamberline::NameLabel name READ nameText CONSTANT)
  Q_PROPERTY(tamberline::Badge modeBadge READ shownModeBadge CONSTANT)
  Q_PROPERTY(tamberline::Badge warningBadge READ shownWarningBadge CONSTANT)
  Q_PROPERTY(QString ratedDraw READ ratedDrawLabel CONSTANT)
  Q_PROPERTY(bool hasSpeedBar READ hasSpeedBar CONSTANT)
  Q_PROPERTY(tamberline::SpeedBarRow speedBar READ shownSpeedBar CONSTANT)

public:
  std::string icon = {};
  std::string name = {};
  std::optional<Badge> modeBadge = {};
  std::optional<Badge> warningBadge = {};
  std::optional<std::string> ratedDraw = {};
  std::optional<SpeedBarRow> speedBar = {};
  std::optional<LinkNote> link = {};

  QString iconName() const { return shownSymbol(icon); }
  NameLabel nameText() const;
  Badge shownModeBadge() const { return modeBadge.value_or(Badge{}); }
  Badge shownWarningBadge() const { return warningBadge.value_or(Badge{}); }
  QString ratedDrawLabel() const { return labelOrEmpty(ratedDraw); }
  bool hasSpeedBar() const { return speedBar.has_value(); }
  SpeedBarRow shownSpeedBar() const { return speedBar.value_or(SpeedBarRow{}); }

  friend bool operator==(const TBDeviceRow&, const TBDeviceRow&) = default;
};

struct USBBusHeaderRow {
  Q_GADGET
  QML_VALUE_TYPE(usbBusHeaderRow)
  Q_PROPERTY(tamberline::NameLabel name READ nameText CONSTANT)
  Q_PROPERTY(QString ratedDraw READ ratedDrawLabel CONSTANT)

public:
  std::string name = {};
  std::optional<std::string> ratedDraw = {};
  /// The controller, which distinguishes buses of the same name.
  std::optional<std::string> note = {};

  NameLabel nameText() const { return nameLabel(name, note); }
  QString ratedDrawLabel() const { return labelOrEmpty(ratedDraw); }

  friend bool operator==(const USBBusHeaderRow&, const USBBusHeaderRow&) = default;
};

/// Why a link is slow: the title and text of a popover. Not drawn if the title is empty.
struct SpeedNote {
  Q_GADGET
  QML_VALUE_TYPE(speedNote)
  Q_PROPERTY(QString title READ titleLabel CONSTANT)
  Q_PROPERTY(QString note READ noteText CONSTANT)

public:
  std::string title = {};
  std::string note = {};

  QString titleLabel() const { return shownLabel(title); }
  QString noteText() const { return shownTooltip(note); }

  friend bool operator==(const SpeedNote&, const SpeedNote&) = default;
};

struct HubTotal {
  Q_GADGET
  QML_VALUE_TYPE(hubTotal)
  Q_PROPERTY(QString text READ textLabel CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipLabel CONSTANT)

public:
  std::string text = {};
  std::string tooltip = {};

  QString textLabel() const { return shownLabel(text); }
  QString tooltipLabel() const { return shownTooltip(tooltip); }

  friend bool operator==(const HubTotal&, const HubTotal&) = default;
};

struct USBDeviceDetailRow {
  Q_GADGET
  QML_VALUE_TYPE(usbDeviceDetailRow)
  Q_PROPERTY(QString icon READ iconName CONSTANT)
  Q_PROPERTY(tamberline::NameLabel name READ nameText CONSTANT)
  Q_PROPERTY(QString speedText READ speedLabel CONSTANT)
  Q_PROPERTY(tamberline::views::Color speedColor READ shownSpeedColor CONSTANT)
  Q_PROPERTY(QString speedTooltip READ speedTooltipLabel CONSTANT)
  Q_PROPERTY(tamberline::SpeedNote speedNote READ shownSpeedNote CONSTANT)
  Q_PROPERTY(tamberline::HubTotal hubTotal READ shownHubTotal CONSTANT)
  Q_PROPERTY(bool hasSpeedBar READ hasSpeedBar CONSTANT)
  Q_PROPERTY(tamberline::SpeedBarRow speedBar READ shownSpeedBar CONSTANT)
  Q_PROPERTY(bool hasPowerBar READ hasPowerBar CONSTANT)
  Q_PROPERTY(tamberline::PowerBarRow powerBar READ shownPowerBar CONSTANT)
  Q_PROPERTY(QVariantList volumes READ volumeList CONSTANT)

public:
  std::string icon = {};
  std::string name = {};
  std::string speedText = {};
  Color speedColor = Color::Orange;
  std::string speedTooltip = {};
  std::optional<SpeedNote> speedNote = {};
  std::optional<HubTotal> hubTotal = {};
  std::optional<SpeedBarRow> speedBar = {};
  std::optional<PowerBarRow> powerBar = {};
  std::vector<VolumeRow> volumes = {};
  /// An addition to the name's tooltip: extra current, built in, tunneled.
  std::optional<std::string> note = {};

  QString iconName() const { return shownSymbol(icon); }
  NameLabel nameText() const { return nameLabel(name, note); }
  QString speedLabel() const { return shownLabel(speedText); }
  Color shownSpeedColor() const;
  QString speedTooltipLabel() const { return shownTooltip(speedTooltip); }
  SpeedNote shownSpeedNote() const { return speedNote.value_or(SpeedNote{}); }
  HubTotal shownHubTotal() const { return hubTotal.value_or(HubTotal{}); }
  bool hasSpeedBar() const { return speedBar.has_value(); }
  SpeedBarRow shownSpeedBar() const { return speedBar.value_or(SpeedBarRow{}); }
  bool hasPowerBar() const { return powerBar.has_value(); }
  PowerBarRow shownPowerBar() const { return powerBar.value_or(PowerBarRow{}); }
  QVariantList volumeList() const { return asVariants(volumes); }

  friend bool operator==(const USBDeviceDetailRow&, const USBDeviceDetailRow&) = default;
};

struct ChargerRow {
  Q_GADGET
  QML_VALUE_TYPE(chargerRow)
  Q_PROPERTY(tamberline::NameLabel name READ nameText CONSTANT)
  Q_PROPERTY(QString rated READ ratedLabel CONSTANT)
  Q_PROPERTY(bool isCharging MEMBER isCharging CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipText CONSTANT)

public:
  std::string name = {};
  std::optional<std::string> rated = {};
  bool isCharging = false;

  /// The adapter's name, or a general one if it has none.
  std::string shownName() const;

  NameLabel nameText() const { return nameLabel(shownName()); }
  QString ratedLabel() const { return labelOrEmpty(rated); }
  /// Why the row is grey; empty while it charges.
  QString tooltipText() const;

  friend bool operator==(const ChargerRow&, const ChargerRow&) = default;
};

struct ChargingOnlyRow {
  Q_GADGET
  QML_VALUE_TYPE(chargingOnlyRow)
  Q_PROPERTY(QString title READ titleLabel CONSTANT)
  Q_PROPERTY(QString detail READ detailText CONSTANT)
  Q_PROPERTY(tamberline::Badge badge MEMBER badge CONSTANT)

public:
  std::string title = {};
  std::string detail = {};
  Badge badge = {};

  QString titleLabel() const { return shownLabel(title); }
  QString detailText() const { return shownTooltip(detail); }

  friend bool operator==(const ChargingOnlyRow&, const ChargingOnlyRow&) = default;
};

/// A faint colour behind a row.
struct Tint {
  Q_GADGET
  QML_VALUE_TYPE(tint)
  Q_PROPERTY(tamberline::views::Color color MEMBER color CONSTANT)
  Q_PROPERTY(double opacity MEMBER opacity CONSTANT)

public:
  Color color = Color::Clear;
  double opacity = 0;

  friend bool operator==(const Tint&, const Tint&) = default;
};

/// One row of the tree below a card's header, with its child rows.
struct ExpandableRow {
  using Content =
      std::variant<TBDeviceRow, USBBusHeaderRow, USBDeviceDetailRow, ChargerRow, ChargingOnlyRow>;

  std::string id = {};
  int depth = 0;
  bool isLast = false;
  /// The initial state.
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
