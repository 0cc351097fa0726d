#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// The languages that the user prefers on this system, best first, as locale names such as "de_AT"
/// or "pt-BR"; empty if the system reports none.
std::vector<std::string> preferredLanguages();

} // namespace tamberline
