#pragma once

#include "desktop/animation_setting.h"
#include "desktop/tray.h"
#include "desktop/window_places.h"

#include <QString>

#include <memory>

namespace tamberline {

/// Chooses the graphics API for this system. Call it before the application object is created.
void chooseGraphics();

/// Keeps the start of a program that shows only its icon from taking keyboard focus. Call it before
/// the application object is created.
void startWithoutFocus();

/// The user's folder for the runtime files of programs; empty if the system has none.
QString systemRuntimeFolder();

/// Whether the session started the program, rather than a user who wants to see the panel. Clears
/// the flag so that child processes do not inherit it; only the first call can return true.
bool takeStartInBackground();

/// Whether the panel opens when the user starts the program.
bool opensPanelOnStart();

/// These require the application object.
std::shared_ptr<WindowPlaces> makeWindowPlaces();
std::unique_ptr<Tray> makeDesktopTray(const std::shared_ptr<WindowPlaces>& places);
/// Null if this program does not read the setting on this system.
std::unique_ptr<AnimationSetting> makeAnimationSetting();

} // namespace tamberline
