#pragma once

#include "acquisition/machine_source.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace tamberline {

/// What is answered for a machine that never was: plausible in shape, with duplicates, odd names,
/// missing and mistyped values strewn in. Every device has a name of its own.
struct RandomMachine {
  std::map<Question, std::string> answers;

  /// Names of the devices that must be in the tree exactly once.
  std::set<std::string> shownDevices;
  /// Names of the devices that the rules leave out.
  std::set<std::string> hiddenDevices;
};

/// The same seed gives the same machine on every system.
RandomMachine makeRandomMachine(std::uint32_t seed);

} // namespace tamberline
