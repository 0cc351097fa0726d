#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tamberline {

/// The question that an answer answers; docs/answers.md has the evidence for each.
enum class AnswerKind : std::uint8_t {
  // Why is it slow?
  slowConnection,      // the cable or socket of a device or hub that could do more
  slowHub,             // a hub, or its cable, slows what is behind it
  slowPort,            // the port is slower than the device, and another port is not
  unknownAbility,      // slower than its way; it is unknown whether it could do more
  sharedLink,          // several fast drives on one link
  slowThunderboltLink, // below what both ends can do
  // Why does it not work?
  notAuthorized,    // a Thunderbolt device without PCI Express
  blocked,          // a USB device that the computer does not use
  silentDevice,     // something is plugged in and does not answer
  powerWithoutData, // something draws power and has no data
  overloadedPort,   // devices declare more than their port gives
  // Why does it not charge?
  notCharging,    // the adapter is connected
  draining,       // the battery drains although the adapter is connected
  weakAdapter,    // its best offer is below what the computer takes
  weakPowerCable, // the cable limits the contract
  // What did the speed test show?
  linkIsTheLimit,
  driveIsTheLimit,
  impossibleFigure, // it came from a memory
};

enum class AnswerWeight : std::uint8_t {
  attention, // something to be changed
  note,      // worth knowing, or not certain
};

/// What limits, seen from the limiting node.
enum class LimitingPart : std::uint8_t {
  none,
  node,             // the device, hub or port itself
  connection,       // the cable or socket that connects the node upstream
  cable,            // that cable, which says so itself
  nodeOrConnection, // one of both
};

/// The values behind an answer's texts; absent if its kind has none or they are unknown.
struct AnswerFacts {
  std::optional<double> actualGbps = {};
  std::optional<double> possibleGbps = {};
  std::optional<double> actualWatts = {};
  std::optional<double> possibleWatts = {};
  std::optional<double> measuredMBps = {};
  /// What the link carries at most, or usually.
  std::optional<double> linkMBps = {};
  std::optional<std::int64_t> chargePercent = {};
  /// How many devices are affected, or how many lanes are possible.
  std::optional<std::int64_t> count = {};

  friend bool operator==(const AnswerFacts&, const AnswerFacts&) = default;
};

/// One conclusion from a scan, with its texts in the language of the run. A plain value; equal for
/// equal scans.
struct Answer {
  AnswerKind kind = AnswerKind::unknownAbility;
  AnswerWeight weight = AnswerWeight::note;
  /// The node of the port tree that it is about. It exists in the tree.
  std::string nodeID = {};
  /// The node that limits; empty if there is none. It may be `nodeID` itself.
  std::string limitingNodeID = {};
  LimitingPart limitingPart = LimitingPart::none;
  /// The other nodes that it concerns, in tree order: those that a slow hub slows.
  std::vector<std::string> otherNodeIDs = {};
  AnswerFacts facts = {};
  /// At most 60 characters, with the name of the node. Names in the texts are safe to show.
  std::string headline = {};
  std::string reason = {};
  std::string advice = {};

  friend bool operator==(const Answer&, const Answer&) = default;
};

/// The first answer that is about each node or concerns it, by the node's identifier. Keys and
/// pointers refer to `answers`.
std::unordered_map<std::string_view, const Answer*>
answersByNode(const std::vector<Answer>& answers);

/// The names in the inspect document.
std::string_view nameOf(AnswerKind kind);
std::string_view nameOf(AnswerWeight weight);
std::string_view nameOf(LimitingPart part);

} // namespace tamberline
