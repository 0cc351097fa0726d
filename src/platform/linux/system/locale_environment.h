#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

using EnvironmentLookup = std::function<std::optional<std::string>(const char* name)>;

/// The user's preferred locale names, best first, from the first of LANGUAGE (a list), LC_ALL,
/// LC_MESSAGES and LANG that is set and not empty. "C" and "POSIX" count as English. Empty if none
/// is set.
std::vector<std::string> languagesPreferredIn(const EnvironmentLookup& environment);

} // namespace tamberline
