#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace tamberline {

/// Saved reports of a machine that never was: plausible in shape, with duplicates, odd names,
/// missing and mistyped values strewn in. Every device has a name of its own.
struct RandomMachine {
  /// By the names of the files in a folder of saved reports.
  std::map<std::string, std::string> files;

  /// Names of the devices that must stand in the tree exactly once.
  std::set<std::string> shownDevices;
  /// Names of the devices that the rules leave out.
  std::set<std::string> hiddenDevices;
};

/// The same machine for the same seed, on every system.
RandomMachine makeRandomMachine(std::uint32_t seed);

} // namespace tamberline
