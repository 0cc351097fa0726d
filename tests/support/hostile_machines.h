// Machines to which nobody means well.
#pragma once

#include "support/fake_machine.h"

#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace tamberline {

/// Names as no maker gives them: markup, control characters, turned directions, sequences of emoji,
/// marks without end, a hundred thousand characters, white space only, nothing.
std::vector<std::string> hostileNames();

/// Locations and container identifiers, as the registry tells them.
using Containers = std::vector<std::pair<unsigned, std::string>>;

/// Reports made of entries.
void answerWithThunderboltEntries(FakeMachine& machine, const std::vector<nlohmann::json>& entries);
void answerWithUSBEntries(FakeMachine& machine, const std::vector<nlohmann::json>& entries);
void answerWithContainers(FakeMachine& machine, const Containers& containers);

/// A port without anything, 0-based.
nlohmann::json portEntry(int index);

/// A bus inside of something that is plugged in.
nlohmann::json busEntry(const std::vector<nlohmann::json>& devices);

/// One on the computer's own controller.
nlohmann::json ownBusEntry(const std::vector<nlohmann::json>& devices);

nlohmann::json deviceEntry(const std::string& name,
                           const std::vector<nlohmann::json>& children = {});

nlohmann::json located(nlohmann::json device, unsigned location);

/// `name` wherever a name can stand: a dock, its maker, a device on it, its volume, the adapter.
void answerWithNameEverywhere(FakeMachine& machine, const std::string& name);

/// Ports with a device each, whose names end in the number of their port.
void answerWithManyPorts(FakeMachine& machine, int count);

/// Hubs of ten devices on one port.
void answerWithManyDevices(FakeMachine& machine, int count);

/// A hub which has itself behind it, twice, with devices on every level.
void answerWithHubThatHoldsItself(FakeMachine& machine);

/// As many hubs on one port, equal in everything, with an equal device behind each.
void answerWithTwins(FakeMachine& machine, int count);

} // namespace tamberline
