#pragma once

#include "desktop/tray.h"

#include <QIcon>

namespace tamberline {

/// The icon in the tray: one colour that is visible on a bar of this tone. If the tone is unknown,
/// a dark shape with a light rim. Empty if the symbol cannot be loaded.
QIcon menuBarIcon(BarTone tone);

} // namespace tamberline
