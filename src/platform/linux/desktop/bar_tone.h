#pragma once

#include "desktop/tray.h"

#include <QImage>
#include <QRect>

namespace tamberline {

/// The tone at the four edges of a picture, which the icon does not cover.
BarTone toneAtEdges(const QImage& picture);

/// The tone of the bar around an icon in the X11 tray, taken from the screen now; unknown if the
/// icon is on no screen or the screen cannot be read.
BarTone barToneAround(const QRect& icon);

} // namespace tamberline
