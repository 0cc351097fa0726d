#include "platform/desktop.h"

#include "platform/macos/mac_tray.h"
#include "platform/macos/mac_window_places.h"

#include <QCoreApplication>

namespace tamberline {

/// The default graphics API is the fastest here. Qt would keep its compiled shaders in a file.
void chooseGraphics() {
  QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache);
}

/// Otherwise Qt activates the application at its start, which takes keyboard focus from whatever
/// the user types into, for example after login.
void startWithoutFocus() {
  qputenv("QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM", "1");
}

/// None: Qt's runtime location on this system is the folder for permanent application data.
QString systemRuntimeFolder() {
  return {};
}

/// A start at login cannot be distinguished from a start by the user.
bool takeStartInBackground() {
  return false;
}

/// The menu bar always shows the icon, and a start at login should show nothing else.
bool opensPanelOnStart() {
  return false;
}

std::shared_ptr<WindowPlaces> makeWindowPlaces() {
  return std::make_shared<MacWindowPlaces>();
}

std::unique_ptr<Tray> makeDesktopTray(const std::shared_ptr<WindowPlaces>& /*places*/) {
  return std::make_unique<MacTray>();
}

/// So rows do not move here.
std::unique_ptr<AnimationSetting> makeAnimationSetting() {
  return nullptr;
}

} // namespace tamberline
