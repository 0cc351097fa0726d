#pragma once

#include <QFont>
#include <QPalette>

namespace tamberline {

/// Our own colours, for systems without a desktop and for pictures.
QPalette lightPalette();
QPalette darkPalette();

/// Our own font, if it is installed.
QFont ownFont();

/// Gives the application our own font if no desktop sets one and, without a screen, our own
/// colours.
void applyDefaultLookWithoutDesktop();

} // namespace tamberline
