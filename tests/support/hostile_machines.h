// Machines with malicious or absurd data.
#pragma once

#include "support/fake_machine.h"

#include <nlohmann/json.hpp>

#include <string>
#include <utility>
#include <vector>

namespace tamberline {

/// Names that no real device has: markup, control characters, direction overrides, emoji sequences,
/// thousands of combining marks, a hundred thousand characters, only white space, nothing.
std::vector<std::string> hostileNames();

/// Locations and container identifiers, as in the registry.
using Containers = std::vector<std::pair<unsigned, std::string>>;

/// Sets a report with these entries.
void answerWithThunderboltEntries(FakeMachine& machine, const std::vector<nlohmann::json>& entries);
void answerWithUSBEntries(FakeMachine& machine, const std::vector<nlohmann::json>& entries);
void answerWithContainers(FakeMachine& machine, const Containers& containers);

/// A port with nothing attached, 0-based.
nlohmann::json portEntry(int index);

/// A bus inside an attached device.
nlohmann::json busEntry(const std::vector<nlohmann::json>& devices);

/// A bus on the computer's own controller.
nlohmann::json ownBusEntry(const std::vector<nlohmann::json>& devices);

nlohmann::json deviceEntry(const std::string& name,
                           const std::vector<nlohmann::json>& children = {});

nlohmann::json located(nlohmann::json device, unsigned location);

/// Uses `name` for everything that has a name: a dock, its maker, a device on it, its volume, the
/// adapter.
void answerWithNameEverywhere(FakeMachine& machine, const std::string& name);

/// Ports with one device each, whose name ends with the number of the port.
void answerWithManyPorts(FakeMachine& machine, int count);

/// Hubs of ten devices on one port.
void answerWithManyDevices(FakeMachine& machine, int count);

/// A hub that contains itself twice, with devices on every level.
void answerWithHubThatHoldsItself(FakeMachine& machine);

/// `count` identical hubs on one port, with an identical device behind each.
void answerWithTwins(FakeMachine& machine, int count);

} // namespace tamberline
