#pragma once

#include <QString>

#include <optional>

namespace tamberline {

/// Chooses how windows are drawn on this system. Before the application object is made.
void chooseGraphics();

/// The folder of the application's bundle that has the manuals; absent where programs are no
/// bundles and carry them inside. After the application object is made.
std::optional<QString> bundledManuals();

/// Where programs keep the traces of their runs for a person; empty where there is no such folder.
QString systemRuntimeFolder();

/// Whether a tray that knows an icon's menu opens it on every click and leaves none for the panel.
bool everyClickOpensTrayMenu();

} // namespace tamberline
