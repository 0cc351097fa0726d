#pragma once

#include "desktop/tray.h"

#include <QIcon>

namespace tamberline {

/// The icon in the tray: one colour that is seen on a bar of this tone, and a light rim around a
/// dark shape where the tone is not known. Empty when the symbol cannot be loaded.
QIcon menuBarIcon(BarTone tone);

} // namespace tamberline
