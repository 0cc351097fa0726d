#pragma once

namespace tamberline {

/// Chooses how windows are drawn on this system. Before the application object is made.
void chooseGraphics();

} // namespace tamberline
