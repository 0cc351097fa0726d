#pragma once

#include "acquisition/machine_source.h"

#include <cstddef>
#include <map>
#include <string>

namespace tamberline {

/// The answers of an invented machine: hubs of seven devices nested three deep,
/// each hub in two halves that share a container identifier; all of them behind one dock.
std::map<Question, std::string> makeLargeMachine(std::size_t deviceCount);

/// A dump of a device tree of about `byteCount` bytes, including the current limits of four ports.
std::string makeDeviceTree(std::size_t byteCount);

} // namespace tamberline
