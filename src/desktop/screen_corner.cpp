#include "desktop/screen_corner.h"

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

} // namespace tamberline
