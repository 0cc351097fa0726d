#include "platform/desktop.h"

namespace tamberline {

/// The system's own way of drawing is the quick one here.
void chooseGraphics() {}

/// What Qt calls so here is the folder in which programs keep their data for good.
QString systemRuntimeFolder() {
  return {};
}

bool everyClickOpensTrayMenu() {
  return true;
}

} // namespace tamberline
