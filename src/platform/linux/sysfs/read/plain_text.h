#pragma once

#include <string>
#include <string_view>

namespace tamberline::sysfs {

/// Converts arbitrary bytes from a device or the user to text that every report can hold. Invalid
/// UTF-8 and characters that XML does not allow become U+FFFD, control characters become blanks,
/// and white space at both ends is removed.
std::string plainText(std::string_view bytes);

/// Decodes escaped bytes such as "\x20", as in udev's database.
std::string withoutHexEscapes(std::string_view text);

/// Decodes escaped bytes such as "\040", as in the mount table.
std::string withoutOctalEscapes(std::string_view text);

} // namespace tamberline::sysfs
