// Machines that no sample shows, as they report themselves.
#pragma once

#include "support/fake_machine.h"

#include <string>
#include <vector>

namespace tamberline {

/// `count` ports with nothing attached.
void answerWithPorts(FakeMachine& machine, int count);

/// A USB device; `name` and `members` are JSON ("a \"b\"", R"("device_speed": "super_speed")").
struct ReportedDevice {
  std::string name = {};
  std::string members = {};
};

/// Port 1 with these devices directly on it.
void answerWithDevices(FakeMachine& machine, const std::vector<ReportedDevice>& devices);

/// One port with a disk called "Quarry SSD" on it, whose one volume is mounted at /Volumes/Data.
void answerWithDisk(FakeMachine& machine);

/// Everything that a card can show, and names of 60 characters: a dock with a hub, and on the hub a
/// disk with two volumes; measured power; an adapter; a phone that only charges.
void answerWithLongNames(FakeMachine& machine);

} // namespace tamberline
