#include "platform/desktop.h"

#include <QQuickWindow>
#include <QStandardPaths>

namespace tamberline {

/// The panel is text and rectangles. Drawing them in software starts in a third of the time and
/// memory that a graphics driver takes.
void chooseGraphics() {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

QString systemRuntimeFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

bool everyClickOpensTrayMenu() {
  return false;
}

} // namespace tamberline
