// How long ago something was, in whole seconds, minutes, hours or days, as it reads after a word
// such as "Updated".
#pragma once

#include <chrono>
#include <string>

namespace tamberline {

/// In the language of this run. An age below one second, or below zero because the clock was set
/// back, is "just now".
std::string relativeTimeText(std::chrono::seconds age);

/// How long the text for this age stays correct.
std::chrono::seconds untilRelativeTimeChanges(std::chrono::seconds age);

} // namespace tamberline
