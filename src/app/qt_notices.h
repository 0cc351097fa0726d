#pragma once

namespace tamberline {

// Messages that Qt prints on standard error when a program starts, although nothing is wrong. Call
// these once, before the application object is constructed.

/// Suppresses the notice that Qt left a locale whose encoding is not UTF-8. Every text here is
/// UTF-8 anyway. The message that Qt failed to leave it is still printed.
void suppressEncodingNotice();

/// Suppresses what Qt prints in every program that runs without a desktop.
void suppressDesktopNotices();

} // namespace tamberline
