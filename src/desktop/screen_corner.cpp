#include "desktop/screen_corner.h"

#include <QGuiApplication>
#include <QScreen>

namespace tamberline {

Qt::Corner cornerNextTo(const std::optional<QPoint>& place, const QRect& screen) {
  if (!place) {
    return Qt::TopRightCorner;
  }
  const bool isLeft = place->x() < screen.center().x();
  if (place->y() > screen.center().y()) {
    return isLeft ? Qt::BottomLeftCorner : Qt::BottomRightCorner;
  }
  return isLeft ? Qt::TopLeftCorner : Qt::TopRightCorner;
}

Qt::Corner screenCornerNextTo(const std::optional<QPoint>& place) {
  const QScreen* const screen = place ? QGuiApplication::screenAt(*place) : nullptr;
  return screen == nullptr ? Qt::TopRightCorner : cornerNextTo(place, screen->geometry());
}

} // namespace tamberline
