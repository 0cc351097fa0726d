#pragma once

#include <QImage>

namespace tamberline {

/// A picture of the panel with the lines of its grid over it and their names above it.
QImage withGrid(const QImage& panel);

} // namespace tamberline
