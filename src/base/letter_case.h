// Upper and lower case of UTF-8 texts by Unicode's one-to-one mapping, the same in every locale of
// the process. Bytes that are no UTF-8 stay as they are.
#pragma once

#include <string>
#include <string_view>

namespace tamberline {

std::string lowerCased(std::string_view text);

/// First character of each blank-separated word in upper case, the others in lower case.
std::string titleCased(std::string_view text);

} // namespace tamberline
