#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tamberline {

/// Whether it is a control character, an invisible one, or one that changes the writing direction.
bool isUnsafeCharacter(char32_t character);

/// A text from outside, made safe for a terminal or a line of the panel. White space at the ends is
/// removed. Control characters, invisible ones and those that change the writing direction become
/// U+FFFD. The middle of a text longer than `maxCharacters` becomes "…".
std::string shownText(std::string_view text, std::size_t maxCharacters = 120);

} // namespace tamberline
