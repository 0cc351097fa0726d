#pragma once

#include "desktop/tray.h"
#include "desktop/window_places.h"

#include <QString>

#include <memory>

namespace tamberline {

/// Chooses how windows are drawn on this system. Before the application object is made.
void chooseGraphics();

/// Where programs keep the traces of their runs for a person; empty where there is no such folder.
QString systemRuntimeFolder();

/// Whether the session started the program, not a person who wants to see the panel. Can be asked
/// once: what the program starts itself does not hear of it.
bool takeStartInBackground();

/// Whether the first start by a person opens the panel.
bool opensPanelOnStart();

/// Both after the application object is made.
std::shared_ptr<WindowPlaces> makeWindowPlaces();
std::unique_ptr<Tray> makeDesktopTray(const std::shared_ptr<WindowPlaces>& places);

} // namespace tamberline
