#pragma once

#include "tree/tree_node.h"
#include "views/port_card.h"
#include "views/tree_rows.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tamberline {

/// What the panel's list is made from; see PortScanner.
struct PanelInputs {
  std::vector<TreeNode> portTree = {};
  PortFacts portFacts = {};
  bool isScanning = false;
  std::optional<std::string> errorMessage = {};
};

/// A bus that no dock brought.
struct StandaloneUSBCard {
  std::string id = {};
  USBBusHeaderRow header = {};
  std::vector<ExpandableRow> rows = {};
  std::optional<std::string> nothingAttached = {}; // absent where there are rows
};

/// An adapter that is not on a USB-C port.
struct ChargerCard {
  std::string id = {};
  std::string icon = {};
  std::string title = {};
  std::string port = {};
  std::string portTooltip = {};
  ChargerRow row = {};
};

using Card = std::variant<PortCard, StandaloneUSBCard, ChargerCard>;

/// The list of the panel: cards, or one message in their place.
struct Panel {
  enum class State : std::uint8_t { error, scanning, empty, cards };

  State state = State::empty;
  std::optional<std::string> message = {}; // absent when there are cards
  std::vector<Card> cards = {};
};

Panel describePanel(const PanelInputs& inputs);

} // namespace tamberline
