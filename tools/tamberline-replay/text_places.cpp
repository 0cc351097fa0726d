#include "text_places.h"

#include <QAccessible>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickItem>

#include <algorithm>
#include <vector>

namespace tamberline {
namespace {

struct TextPlace {
  QString text;
  QRectF rectangle;
};

QString textOf(QQuickItem* item) {
  QString text = item->property("text").toString();
  if (text.isEmpty()) {
    const QAccessibleInterface* object = QAccessible::queryAccessibleInterface(item);
    const bool isButton = object != nullptr && object->role() == QAccessible::Button;
    text = isButton ? object->text(QAccessible::Name) : QString();
  }
  return text;
}

void collect(QQuickItem* item, std::vector<TextPlace>& places) {
  if (!item->isVisible()) {
    return;
  }
  const QRectF rectangle = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
  const QString text = textOf(item);
  if (!text.isEmpty() && !rectangle.isEmpty()) {
    places.push_back({text, rectangle});
  }
  for (QQuickItem* child : item->childItems()) {
    collect(child, places);
  }
}

QJsonObject asJson(const TextPlace& place) {
  return {{"text", place.text},
          {"x", place.rectangle.x()},
          {"y", place.rectangle.y()},
          {"width", place.rectangle.width()},
          {"height", place.rectangle.height()}};
}

} // namespace

QByteArray textPlaces(const QQuickWindow& window) {
  std::vector<TextPlace> places;
  collect(window.contentItem(), places);
  std::stable_sort(places.begin(), places.end(), [](const TextPlace& left, const TextPlace& right) {
    return left.rectangle.y() < right.rectangle.y();
  });
  QJsonArray array;
  for (const TextPlace& place : places) {
    array.append(asJson(place));
  }
  return QJsonDocument(array).toJson();
}

} // namespace tamberline
