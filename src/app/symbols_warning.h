#pragma once

namespace tamberline {

/// Warns on standard error if the panel will have no symbols, and says what is missing. Call it
/// after the application object is constructed.
void warnWithoutSymbols(const char* program);

} // namespace tamberline
