#pragma once

#include <cstdint>

namespace tamberline {

/// The view of a window, as QWindow::winId returns it.
using NativeView = std::uintptr_t;

/// Prepares a panel so that it can take keyboard focus while another application stays active. It
/// stays visible then, above that application's windows. Call this before each showing, because Qt
/// sets the same properties whenever it changes the window. Does nothing to other windows. Main
/// thread only.
void prepareNativePanel(NativeView view);

/// Puts the panel in front of the windows of all applications and leaves the active application
/// active. Main thread only.
void orderNativePanelFront(NativeView view);

} // namespace tamberline
