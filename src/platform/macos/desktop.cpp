#include "platform/desktop.h"

#include "desktop/qt_tray.h"

namespace tamberline {

/// The system's own way of drawing is the quick one here.
void chooseGraphics() {}

/// What Qt calls so here is the folder in which programs keep their data for good.
QString systemRuntimeFolder() {
  return {};
}

/// A start at login cannot be told from a person's.
bool takeStartInBackground() {
  return false;
}

/// The menu bar always has the icon, and a start at login should bring nothing else.
bool opensPanelOnStart() {
  return false;
}

std::shared_ptr<WindowPlaces> makeWindowPlaces() {
  return std::make_shared<FreeWindowPlaces>();
}

/// A menu bar that knows an icon's menu opens it on every click and leaves none for the panel.
std::unique_ptr<Tray> makeDesktopTray(const std::shared_ptr<WindowPlaces>& /*places*/) {
  return std::make_unique<QtTray>(QtTray::MenuOpener::program);
}

} // namespace tamberline
