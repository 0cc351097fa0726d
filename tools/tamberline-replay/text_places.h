#pragma once

#include <QByteArray>
#include <QQuickWindow>

namespace tamberline {

/// Where each text of the panel stands, and each button by its name, from top to bottom: a JSON
/// array of {"text", "x", "y", "width", "height"} in the panel's points. For whoever draws on a
/// picture of it.
QByteArray textPlaces(const QQuickWindow& window);

} // namespace tamberline
