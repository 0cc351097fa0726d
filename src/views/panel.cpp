#include "views/panel.h"

#include "i18n/loc.h"

#include <algorithm>

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
                 .portTooltip = std::string(Loc::hintAdapterPort()),
                 .isCharging = charger.isCharging},
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

/// A desktop computer has adapters or ports beside its buses; here the firmware links no bus to a
/// port.
bool hasBusesOnly(const std::vector<Card>& cards) {
  return std::all_of(cards.begin(), cards.end(), [](const Card& card) {
    return std::holds_alternative<StandaloneUSBCard>(card);
  });
}

} // namespace

Panel describePanel(const PanelInputs& inputs) {
  if (inputs.errorMessage) {
    return {Panel::State::Error, inputs.errorMessage, std::string(Loc::hintScanFailed()), {}};
  }
  if (inputs.portTree.empty()) {
    return inputs.isScanning ? Panel{Panel::State::Scanning,
                                     std::string(Loc::scanningPorts()),
                                     std::string(Loc::hintFirstScan()),
                                     {}}
                             : Panel{Panel::State::Empty,
                                     std::string(Loc::noPorts()),
                                     std::string(Loc::hintNoPorts()),
                                     {}};
  }
  Panel panel{.state = Panel::State::Cards};
  for (const TreeNode& node : inputs.portTree) {
    appendCard(node, inputs.portFacts, panel.cards);
  }
  if (hasBusesOnly(panel.cards)) {
    panel.hint = Loc::hintPortsUnknown();
  }
  return panel;
}

} // namespace tamberline
