// Machines that no sample shows, as the tools report them.
#pragma once

#include "support/fake_tools.h"

#include <string>
#include <vector>

namespace tamberline {

/// `count` ports with nothing on them.
void answerWithPorts(FakeTools& tools, int count);

/// A USB device; `name` and `members` are JSON ("a \"b\"", R"("device_speed": "super_speed")").
struct ReportedDevice {
  std::string name = {};
  std::string members = {};
};

/// Port 1 with these devices directly on it.
void answerWithDevices(FakeTools& tools, const std::vector<ReportedDevice>& devices);

/// One port with a disk called "Quarry SSD" on it, whose one volume is mounted at /Volumes/Data.
void answerWithDisk(FakeTools& tools);

/// Everything that a card can show, and names of 60 characters: a dock with a hub, and on it a disk
/// with two volumes; measured power; an adapter; a phone that only charges.
void answerWithLongNames(FakeTools& tools);

} // namespace tamberline
