#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// The languages that the person prefers on this system, best first, as locale names such as
/// "de_AT" or "pt-BR"; empty when the system says nothing.
std::vector<std::string> preferredLanguages();

} // namespace tamberline
