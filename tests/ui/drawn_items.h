// What is drawn, according to the items that draw it.
#pragma once

#include <QQuickItem>

#include <vector>

namespace tamberline {

/// The visible items within `part` that come from the QML file `type`.qml or have the C++ class
/// `type`; parents before their children.
std::vector<QQuickItem*> drawnItems(const QQuickItem& part, const char* type);

/// The only one of them. Throws if there is none or more than one.
QQuickItem& drawnItem(const QQuickItem& part, const char* type);

/// The opacity of the item together with all its parents.
double drawnOpacity(const QQuickItem& item);

} // namespace tamberline
