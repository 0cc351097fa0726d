#pragma once

#include <QImage>

namespace tamberline {

/// All symbols with their names, each at 14, 21 and 28 pixels, on a light and a dark card.
QImage symbolSheet();

} // namespace tamberline
