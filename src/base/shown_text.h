#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamberline {

/// Whether it is a control character or an invisible one, or turns the direction of writing.
bool disturbsTheReader(char32_t character);

/// A text from outside made fit for a terminal or a line of the panel: white space at the ends
/// goes, control characters, invisible ones and those that turn the direction of writing become
/// U+FFFD, and the middle of a text of more than `mostCharacters` becomes "…".
std::string shownText(std::string_view text, std::size_t mostCharacters = 120);

} // namespace tamberline
