#pragma once

#include "model/charging_state.h"
#include "model/power_records.h"
#include "tree/tree_node.h"
#include "views/badge.h"
#include "views/bars.h"
#include "views/port_details_text.h"
#include "views/shown_labels.h"
#include "views/tree_rows.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// The scanner's data about the ports that the tree does not contain; see PortScanner.
struct PortFacts {
  std::vector<HPMPort> hpmPorts = {};
  std::map<std::int64_t, PortPowerOut> portPowerOut = {};
  std::map<std::int64_t, std::int64_t> portCurrentLimitMa = {};
  std::optional<ChargingState> charging = {};
};

struct PortBadge {
  enum class Kind : std::uint8_t { capacity, charger, video, cable, speed };
  Kind kind = Kind::capacity;
  Badge badge = {};
  /// For screen readers, since a figure alone does not tell what it is. Empty: the badge's text.
  std::string spoken = {};

  friend bool operator==(const PortBadge&, const PortBadge&) = default;
};

/// The measured power of a port.
struct MeasuredPower {
  Q_GADGET
  QML_VALUE_TYPE(measuredPower)
  Q_PROPERTY(QString used READ usedLabel CONSTANT)
  Q_PROPERTY(QString allocated READ allocatedLabel CONSTANT)
  Q_PROPERTY(QString voltageCurrent READ voltageCurrentLabel CONSTANT)
  Q_PROPERTY(tamberline::TriBar bar MEMBER bar CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipLabel CONSTANT)

public:
  std::string used = {};
  std::optional<std::string> allocated = {};
  std::string voltageCurrent = {};
  TriBar bar = {};
  std::string tooltip = {};

  QString usedLabel() const { return shownLabel(used); }
  QString allocatedLabel() const { return labelOrEmpty(allocated); }
  QString voltageCurrentLabel() const { return shownLabel(voltageCurrent); }
  QString tooltipLabel() const { return shownTooltip(tooltip); }

  friend bool operator==(const MeasuredPower&, const MeasuredPower&) = default;
};

/// The power that both ends of a port's connection agreed on. Not measured.
struct AgreedPowerRow {
  Q_GADGET
  QML_VALUE_TYPE(agreedPowerRow)
  Q_PROPERTY(QString watts READ wattsLabel CONSTANT)
  Q_PROPERTY(QString voltageCurrent READ voltageCurrentLabel CONSTANT)
  Q_PROPERTY(QString tooltip READ tooltipLabel CONSTANT)

public:
  AgreedPower power = {};
  std::string watts = {};
  std::string voltageCurrent = {};
  std::string tooltip = {};

  QString wattsLabel() const { return shownLabel(watts); }
  QString voltageCurrentLabel() const { return shownLabel(voltageCurrent); }
  QString tooltipLabel() const { return shownTooltip(tooltip); }

  friend bool operator==(const AgreedPowerRow&, const AgreedPowerRow&) = default;
};

/// Something on a port that is neither a device nor the adapter in use.
struct PartnerNotice {
  Q_GADGET
  QML_VALUE_TYPE(partnerNotice)
  Q_PROPERTY(QString icon READ iconName CONSTANT)
  Q_PROPERTY(QString title READ titleLabel CONSTANT)
  Q_PROPERTY(QString detail READ detailText CONSTANT)

public:
  std::string icon = {};
  std::string title = {};
  std::string detail = {};

  QString iconName() const { return shownSymbol(icon); }
  QString titleLabel() const { return shownLabel(title); }
  QString detailText() const { return shownTooltip(detail); }

  friend bool operator==(const PartnerNotice&, const PartnerNotice&) = default;
};

/// The header of a port's card. Parts that are not shown are absent.
struct PortHeader {
  Q_GADGET
  QML_VALUE_TYPE(portHeader)
  Q_PROPERTY(bool inUse MEMBER inUse CONSTANT)
  Q_PROPERTY(QString dotTooltip READ dotTooltipLabel CONSTANT)
  Q_PROPERTY(tamberline::NameLabel title READ titleText CONSTANT)
  Q_PROPERTY(QString itemCount READ itemCountLabel CONSTANT)
  Q_PROPERTY(QString itemCountTooltip READ itemCountTooltipLabel CONSTANT)
  Q_PROPERTY(QVariantList badges READ badgeList CONSTANT)
  Q_PROPERTY(QString details READ detailsText CONSTANT)

public:
  bool inUse = false;
  std::string dotTooltip = {};
  std::string title = {};
  /// An addition to the title: the sockets, if their numbers differ from the port's, and the actual
  /// link.
  std::optional<std::string> titleNote = {};
  std::optional<std::string> itemCount = {};
  std::optional<std::string> itemCountTooltip = {};
  std::vector<PortBadge> badges = {};
  /// What else is known about the port, a line each: offers, cable, video. Empty if nothing is.
  std::vector<DetailLine> details = {};

  QString dotTooltipLabel() const { return shownTooltip(dotTooltip); }
  NameLabel titleText() const { return nameLabel(title, titleNote); }
  QString itemCountLabel() const { return labelOrEmpty(itemCount); }
  QString itemCountTooltipLabel() const { return shownTooltip(itemCountTooltip.value_or("")); }
  QVariantList badgeList() const;
  QString detailsText() const;

  friend bool operator==(const PortHeader&, const PortHeader&) = default;
};

/// The power on a port: measured or agreed power, and the total rated draw of everything on it.
/// Parts that are not shown are absent.
struct PortPower {
  Q_GADGET
  QML_VALUE_TYPE(portPower)
  Q_PROPERTY(bool hasMeasured READ hasMeasured CONSTANT)
  Q_PROPERTY(tamberline::MeasuredPower measured READ shownMeasured CONSTANT)
  Q_PROPERTY(bool hasAgreed READ hasAgreed CONSTANT)
  Q_PROPERTY(tamberline::AgreedPowerRow agreed READ shownAgreed CONSTANT)
  Q_PROPERTY(bool hasRatedBar READ hasRatedBar CONSTANT)
  Q_PROPERTY(tamberline::PowerBarRow ratedBar READ shownRatedBar CONSTANT)

public:
  std::optional<MeasuredPower> measured = {};
  std::optional<AgreedPowerRow> agreed = {};
  std::optional<PowerBarRow> ratedBar = {};

  bool hasMeasured() const { return measured.has_value(); }
  MeasuredPower shownMeasured() const { return measured.value_or(MeasuredPower{}); }
  bool hasAgreed() const { return agreed.has_value(); }
  AgreedPowerRow shownAgreed() const { return agreed.value_or(AgreedPowerRow{}); }
  bool hasRatedBar() const { return ratedBar.has_value(); }
  PowerBarRow shownRatedBar() const { return ratedBar.value_or(PowerBarRow{}); }
  bool isEmpty() const { return !measured && !agreed && !ratedBar; }

  friend bool operator==(const PortPower&, const PortPower&) = default;
};

/// The card of one physical port. Parts that are not shown are absent.
struct PortCard {
  std::string id = {};
  PortHeader header = {};
  PortPower power = {};
  std::vector<ExpandableRow> rows = {};
  std::optional<PartnerNotice> partner = {}; // only if there are no rows
  std::optional<std::string> nothingAttached = {};
};

/// `node` must be the node of a port, and `bus` its bus.
PortCard portCard(const TreeNode& node, const ThunderboltBus& bus, const PortFacts& facts);

} // namespace tamberline
