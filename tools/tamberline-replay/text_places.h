#pragma once

#include <QByteArray>
#include <QQuickWindow>

namespace tamberline {

/// The position of each text of the panel, and of each button by its name, from top to bottom: a
/// JSON array of {"text", "x", "y", "width", "height"} in the panel's points. For programs that
/// annotate a picture of the panel.
QByteArray textPlaces(const QQuickWindow& window);

} // namespace tamberline
