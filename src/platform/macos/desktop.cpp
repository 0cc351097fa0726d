#include "platform/desktop.h"

#include "desktop/qt_tray.h"

namespace tamberline {

/// The default graphics API is the fastest here.
void chooseGraphics() {}

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
  return std::make_shared<FreeWindowPlaces>();
}

/// The program opens the icon's menu itself: if the menu bar had the menu, every click would open
/// it and none would open the panel.
std::unique_ptr<Tray> makeDesktopTray(const std::shared_ptr<WindowPlaces>& /*places*/) {
  return std::make_unique<QtTray>(QtTray::MenuOpener::program);
}

} // namespace tamberline
