#pragma once

#include <string>
#include <string_view>

namespace tamberline {

/// A text from outside made fit for a terminal: white space at the ends goes, control characters,
/// invisible ones and those that turn the direction of writing become U+FFFD, and the middle of a
/// very long text becomes "…".
std::string shownText(std::string_view text);

} // namespace tamberline
