#pragma once

#include <QFont>
#include <QPalette>

namespace tamberline {

/// Our own colours, for where no desktop gives any and for pictures.
QPalette lightPalette();
QPalette darkPalette();

/// Our own font, if it is installed.
QFont ownFont();

/// Gives the application our own font where no desktop names one and, without a screen, our own
/// colours.
void useOwnLookWithoutDesktop();

} // namespace tamberline
