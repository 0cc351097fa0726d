#pragma once

#include <QFont>
#include <QPalette>

namespace tamberline {

/// Our own colours, for where no desktop gives any and for pictures.
QPalette lightPalette();
QPalette darkPalette();

/// Our own font, if it is installed.
QFont ownFont();

/// Gives the application our own font and colours, unless a desktop chose some.
void useOwnLookWithoutDesktop();

} // namespace tamberline
