#pragma once

#include <string>
#include <string_view>

namespace tamberline::sysfs {

/// Bytes that a device or a person made up as text that every report can hold: bytes that are no
/// UTF-8 become U+FFFD and control characters blanks; white space at the ends goes.
std::string plainText(std::string_view bytes);

/// A text in which "\x20" stands for a byte, as udev's database writes it.
std::string withoutHexEscapes(std::string_view text);

/// A text in which "\040" stands for a byte, as the mount table writes it.
std::string withoutOctalEscapes(std::string_view text);

} // namespace tamberline::sysfs
