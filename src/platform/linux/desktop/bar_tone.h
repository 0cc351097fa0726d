#pragma once

#include "desktop/tray.h"

#include <QImage>
#include <QRect>

namespace tamberline {

/// The tone of what is at the four edges of a picture, where an icon does not reach.
BarTone toneAtEdges(const QImage& picture);

/// The tone of the bar around an icon of X11, as it is on the screen now; unknown where there is
/// nothing to see.
BarTone barToneAround(const QRect& icon);

} // namespace tamberline
