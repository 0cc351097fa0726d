#pragma once

#include <QIcon>

namespace tamberline {

/// The icon in the tray: one colour, for a light or a dark bar as the palette says. Empty when the
/// symbol is not to be had.
QIcon menuBarIcon();

} // namespace tamberline
