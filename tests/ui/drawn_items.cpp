#include "ui/drawn_items.h"

#include <QString>

#include <stdexcept>
#include <string>

namespace tamberline {
namespace {

/// The types that Qt generates from QML files have a number after their names.
bool isOfType(const QQuickItem& item, const QString& type) {
  const QString name = QString::fromLatin1(item.metaObject()->className());
  return name == type || name == "tamberline::" + type || name.startsWith(type + "_QML");
}

void append(const QQuickItem& part, const QString& type, std::vector<QQuickItem*>& items) {
  for (QQuickItem* child : part.childItems()) {
    if (!child->isVisible()) {
      continue;
    }
    if (isOfType(*child, type)) {
      items.push_back(child);
    }
    append(*child, type, items);
  }
}

} // namespace

std::vector<QQuickItem*> drawnItems(const QQuickItem& part, const char* type) {
  std::vector<QQuickItem*> items;
  append(part, QString::fromLatin1(type), items);
  return items;
}

QQuickItem& drawnItem(const QQuickItem& part, const char* type) {
  const std::vector<QQuickItem*> items = drawnItems(part, type);
  if (items.size() != 1) {
    throw std::runtime_error(std::to_string(items.size()) + " items are a " + type);
  }
  return *items.front();
}

double drawnOpacity(const QQuickItem& item) {
  double opacity = 1;
  for (const QQuickItem* around = &item; around != nullptr; around = around->parentItem()) {
    opacity *= around->opacity();
  }
  return opacity;
}

} // namespace tamberline
