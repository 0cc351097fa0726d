#pragma once

#include <QString>

namespace tamberline {

/// Chooses how windows are drawn on this system. Before the application object is made.
void chooseGraphics();

/// Where programs keep the traces of their runs for a person; empty where there is no such folder.
QString systemRuntimeFolder();

/// Whether a tray that knows an icon's menu opens it on every click and leaves none for the panel.
bool everyClickOpensTrayMenu();

} // namespace tamberline
