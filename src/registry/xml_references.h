#pragma once

#include <string_view>

namespace tamberline {

/// Whether every "&" of an XML text, outside comments and CDATA sections, starts one of the five
/// predefined entities or a reference to a character that XML allows.
bool hasOnlyKnownReferences(std::string_view xml);

} // namespace tamberline
