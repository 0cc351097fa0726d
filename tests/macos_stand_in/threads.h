#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// The priority classes that threads asked for, in hexadecimal, each with the priority within it:
/// "19 0". One test at a time.
std::vector<std::string>& freshMacPriorities();

} // namespace tamberline
