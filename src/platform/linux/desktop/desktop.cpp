#include "platform/desktop.h"

#include "platform/linux/desktop/layer_shell.h"
#include "platform/linux/desktop/linux_tray.h"
#include "platform/linux/desktop/portal_animation_setting.h"
#include "platform/linux/desktop/x11_window_places.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QStandardPaths>

namespace tamberline {
namespace {

/// Set by the autostart entry that starts the program with the session.
constexpr const char* backgroundVariable = "TAMBERLINE_START_IN_BACKGROUND";

/// A Wayland desktop on which only the compositor positions windows.
class CompositorWindowPlaces final : public WindowPlaces {
public:
  Decider decider() const override { return Decider::desktop; }
  bool blendsWindows() const override { return true; }
  std::unique_ptr<WindowHold> holdInCorner(QWindow& /*window*/, Qt::Corner /*corner*/,
                                           HoldEvents /*events*/) override {
    return nullptr;
  }
};

} // namespace

/// The panel consists of text and rectangles. Software rendering starts with a third of the time
/// and memory that a graphics driver takes.
void chooseGraphics() {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

/// Does nothing: only a window takes keyboard focus here.
void startWithoutFocus() {}

QString systemRuntimeFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

bool takeStartInBackground() {
  const bool isInBackground = qEnvironmentVariableIntValue(backgroundVariable) == 1;
  qunsetenv(backgroundVariable);
  return isInBackground;
}

/// The autostart entry sets a variable if only the icon is wanted.
bool opensPanelOnStart() {
  return true;
}

std::shared_ptr<WindowPlaces> makeWindowPlaces() {
  if (QGuiApplication::platformName() == QLatin1String("xcb")) {
    return std::make_shared<X11WindowPlaces>();
  }
  if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
    return std::make_shared<FreeWindowPlaces>();
  }
  std::shared_ptr<WindowPlaces> places = layerShellPlaces();
  return places ? places : std::make_shared<CompositorWindowPlaces>();
}

std::unique_ptr<Tray> makeDesktopTray(const std::shared_ptr<WindowPlaces>& places) {
  return std::make_unique<LinuxTray>(places);
}

std::unique_ptr<AnimationSetting> makeAnimationSetting() {
  return std::make_unique<PortalAnimationSetting>(QDBusConnection::sessionBus());
}

} // namespace tamberline
