#include "platform/desktop.h"

#include <QCoreApplication>
#include <QDir>

namespace tamberline {

/// The system's own way of drawing is the quick one here.
void chooseGraphics() {}

/// The program is in the folder MacOS of its bundle.
std::optional<QString> bundledManuals() {
  return QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1String("/../Resources"));
}

/// What Qt calls so here is the folder in which programs keep their data for good.
QString systemRuntimeFolder() {
  return {};
}

bool everyClickOpensTrayMenu() {
  return true;
}

} // namespace tamberline
