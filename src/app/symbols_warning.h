#pragma once

namespace tamberline {

/// Says on standard error when the panel will have no symbols, and what they need. After the
/// application object is made.
void warnWithoutSymbols(const char* program);

} // namespace tamberline
