#pragma once

#include "tree/tree_node.h"
#include "views/port_card.h"
#include "views/shown_labels.h"
#include "views/tree_rows.h"
#include "views/view_enums.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tamberline {

/// The data from which the panel's list is made; see PortScanner.
struct PanelInputs {
  std::vector<TreeNode> portTree = {};
  PortFacts portFacts = {};
  bool isScanning = false;
  std::optional<std::string> errorMessage = {};
};

/// A bus that does not come from a dock.
struct StandaloneUSBCard {
  std::string id = {};
  USBBusHeaderRow header = {};
  std::vector<ExpandableRow> rows = {};
  std::optional<std::string> nothingAttached = {}; // absent if there are rows
};

struct ChargerCardHeader {
  Q_GADGET
  QML_VALUE_TYPE(chargerCardHeader)
  Q_PROPERTY(QString icon READ iconName CONSTANT)
  Q_PROPERTY(QString title READ titleLabel CONSTANT)
  Q_PROPERTY(QString port READ portLabel CONSTANT)
  Q_PROPERTY(QString portTooltip READ portTooltipLabel CONSTANT)
  Q_PROPERTY(bool isCharging MEMBER isCharging CONSTANT)

public:
  std::string icon = {};
  std::string title = {};
  std::string port = {};
  std::string portTooltip = {};
  bool isCharging = false;

  QString iconName() const { return shownSymbol(icon); }
  QString titleLabel() const { return shownLabel(title); }
  QString portLabel() const { return shownLabel(port); }
  QString portTooltipLabel() const { return shownTooltip(portTooltip); }

  friend bool operator==(const ChargerCardHeader&, const ChargerCardHeader&) = default;
};

/// An adapter that is not on a USB-C port.
struct ChargerCard {
  Q_GADGET
  QML_VALUE_TYPE(chargerCard)
  Q_PROPERTY(tamberline::ChargerCardHeader header MEMBER header CONSTANT)
  Q_PROPERTY(tamberline::ChargerRow row MEMBER row CONSTANT)

public:
  std::string id = {};
  ChargerCardHeader header = {};
  ChargerRow row = {};

  friend bool operator==(const ChargerCard&, const ChargerCard&) = default;
};

using Card = std::variant<PortCard, StandaloneUSBCard, ChargerCard>;

/// The list of the panel: cards, or one message instead.
struct Panel {
  using State = views::PanelState;

  State state = State::Empty;
  std::optional<std::string> message = {}; // absent if there are cards
  /// What to do next or, below cards, why they say less than expected.
  std::optional<std::string> hint = {};
  std::vector<Card> cards = {};
};

Panel describePanel(const PanelInputs& inputs);

} // namespace tamberline
