#include "views/panel.h"

#include "i18n/loc.h"

namespace tamberline {
namespace {

std::string_view placeOf(const ChargerInfo& charger) {
  if (charger.connectsViaUSBC) {
    return Loc::usbcThunderbolt();
  }
  return charger.isOnNoKnownPort ? Loc::powerSocket() : "MagSafe";
}

ChargerCard chargerCard(const TreeNode& node, const ChargerInfo& charger) {
  return ChargerCard{
      .id = node.id,
      .header = {.icon = charger.isCharging ? "bolt.fill" : "powerplug.fill",
                 .title = std::string(Loc::powerAdapter()),
                 .port = std::string(placeOf(charger)),
                 .portTooltip = std::string(Loc::hintAdapterPort())},
      .row = chargerRow(charger),
  };
}

StandaloneUSBCard standaloneUSBCard(const TreeNode& node, const USBBus& bus) {
  StandaloneUSBCard card{
      .id = node.id,
      .header = usbBusHeaderRow(bus, node.aggregatedUSBPower()),
      .rows = expandableRows(node.children, 0),
  };
  if (card.rows.empty()) {
    card.nothingAttached = Loc::nothingAttached();
  }
  return card;
}

/// Only ports, buses and adapters are at the top of a port tree.
void appendCard(const TreeNode& node, const PortFacts& facts, std::vector<Card>& cards) {
  if (const auto* port = std::get_if<TreeNode::TBPort>(&node.kind)) {
    cards.emplace_back(portCard(node, port->bus, facts));
  } else if (const auto* entry = std::get_if<TreeNode::USBBusEntry>(&node.kind)) {
    cards.emplace_back(standaloneUSBCard(node, entry->bus));
  } else if (const auto* adapter = std::get_if<TreeNode::Charger>(&node.kind)) {
    cards.emplace_back(chargerCard(node, adapter->charger));
  }
}

} // namespace

Panel describePanel(const PanelInputs& inputs) {
  if (inputs.errorMessage) {
    return {Panel::State::Error, inputs.errorMessage, {}};
  }
  if (inputs.portTree.empty() && inputs.isScanning) {
    return {Panel::State::Scanning, std::string(Loc::scanningPorts()), {}};
  }
  if (inputs.portTree.empty()) {
    return {Panel::State::Empty, std::string(Loc::noPorts()), {}};
  }
  Panel panel{.state = Panel::State::Cards, .message = std::nullopt, .cards = {}};
  for (const TreeNode& node : inputs.portTree) {
    appendCard(node, inputs.portFacts, panel.cards);
  }
  return panel;
}

} // namespace tamberline
