// Upper and lower case of UTF-8 texts by Unicode's one-to-one mapping, the same in every locale of
// the process. Invalid UTF-8 is left unchanged.
#pragma once

#include <string>
#include <string_view>

namespace tamberline {

std::string lowerCased(std::string_view text);

/// The first character of each blank-separated word in upper case, the others in lower case.
std::string titleCased(std::string_view text);

} // namespace tamberline
