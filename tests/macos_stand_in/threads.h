#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// The priority classes that threads requested, in hexadecimal, each with the priority within it:
/// "19 0". Only one test at a time.
std::vector<std::string>& freshMacPriorities();

} // namespace tamberline
