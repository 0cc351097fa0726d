#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

using EnvironmentLookup = std::function<std::optional<std::string>(const char* name)>;

/// The locale names that a person prefers, best first: from the first of LANGUAGE (a list),
/// LC_ALL, LC_MESSAGES and LANG that says anything. "C" and "POSIX" are English; an empty list
/// when nothing is said.
std::vector<std::string> languagesPreferredIn(const EnvironmentLookup& environment);

} // namespace tamberline
