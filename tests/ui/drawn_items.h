// What is drawn, read from the items that draw it.
#pragma once

#include <QQuickItem>

#include <vector>

namespace tamberline {

/// The items within `part` that are seen and that come from the QML file `type`.qml, or are of the
/// C++ class `type`; parents before their children.
std::vector<QQuickItem*> drawnItems(const QQuickItem& part, const char* type);

/// The only one of them. Fails where there is none, or another one too.
QQuickItem& drawnItem(const QQuickItem& part, const char* type);

/// How opaque the item is with everything that it stands in.
double drawnOpacity(const QQuickItem& item);

} // namespace tamberline
