#pragma once

namespace tamberline {

// What Qt says on standard error when a program starts, though nothing is wrong. To be called once,
// before the application is made.

/// Without the notice that Qt left a locale whose encoding is not UTF-8. Every text here is UTF-8
/// anyway; that Qt could not leave it is still said.
void leaveOutEncodingNotice();

/// Without what Qt says of every program that runs without a desktop.
void leaveOutDesktopNotices();

} // namespace tamberline
