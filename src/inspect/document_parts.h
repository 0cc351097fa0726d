// The parts of the inspection document.
#pragma once

#include "answers/answer.h"
#include "model/charging_state.h"
#include "model/power_records.h"
#include "model/thunderbolt_records.h"
#include "model/usb_records.h"
#include "tree/search_entries.h"
#include "tree/tree_node.h"
#include "views/panel.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <vector>

namespace tamberline {

using Document = nlohmann::ordered_json;

template <typename Value>
Document orNull(const std::optional<Value>& value) {
  return value ? Document(*value) : Document(nullptr);
}

template <typename Records, typename Describe>
Document listOf(const Records& records, Describe describe) {
  Document list = Document::array();
  for (const auto& record : records) {
    list.push_back(describe(record));
  }
  return list;
}

// The records: stored fields and derived values, without the random identities, and without the
// children where the tree shows those itself.

Document describe(const TrueLink& link);
Document describe(const AgreedPower& power);

/// Null if nothing is known about a device's link.
Document describeLink(const TrueLink& link, std::optional<bool> isAuthorized);
/// The first drive that a Thunderbolt device connects by PCI; null if there is none.
Document driveOf(const ThunderboltDevice& device);
Document describeBusWithoutChildren(const ThunderboltBus& bus);
Document describe(const ThunderboltBus& bus);
Document describeDeviceWithoutChildren(const ThunderboltDevice& device);
Document describe(const ThunderboltDevice& device);
Document describeBusWithoutChildren(const USBBus& bus);
Document describe(const USBBus& bus);
Document describeDeviceWithoutChildren(const USBDevice& device);
Document describe(const USBDevice& device);
Document describe(const ChargerInfo& charger);
Document describe(const BatteryInfo& battery);
Document describe(const HPMPort& port);
Document describe(const FedPortState& port);
Document describe(const PortPowerOut& power);

Document nameOf(const std::optional<PowerMode>& mode);
Document describeOffers(const std::vector<PowerOffer>& offers);
Document describe(const CableRatings& cable);
Document describe(const VideoUse& video);
Document describe(const ChargingState& state);
Document describe(const USBAbility& ability);
Document describe(const LinkLimit& limit);

/// What else is known about each port: its sockets, the actual speed of its link, a partner that is
/// not a device, the agreed power, and the details of its controller.
Document describePorts(const std::vector<ThunderboltBus>& buses,
                       const std::vector<HPMPort>& controllers,
                       const std::optional<ChargingState>& charging);

/// What is known about the abilities of the USB devices, and about the most that the links of
/// Thunderbolt devices can be, by the identifiers of their nodes.
Document describeAbilities(const std::vector<TreeNode>& tree);
Document describeLinkLimits(const std::vector<TreeNode>& tree);

Document describe(const TreeNode& node);
Document describe(const SearchEntry& entry);

Document describe(const Panel& panel);

Document describe(const Answer& answer);
/// Adds to each row of a described panel the first answer that concerns it, or null.
void addAnswersToRows(const std::vector<Answer>& answers, Document& panel);

} // namespace tamberline
