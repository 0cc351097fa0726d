#include "app/panel_placement.h"

#include "desktop/screen_corner.h"

#include <algorithm>

namespace tamberline {
namespace {

/// Between the panel and the edges of the available screen, in points.
constexpr int margin = 8;

// QRect::right() and bottom() are inside the rectangle; these are the first position outside.
int endX(const QRect& rectangle) {
  return rectangle.x() + rectangle.width();
}
int endY(const QRect& rectangle) {
  return rectangle.y() + rectangle.height();
}

/// If there is no room for both margins, they become smaller. If the panel does not fit at all, the
/// start of the screen wins.
int clampedStart(int wanted, int start, int end, int extent) {
  const int room = std::clamp((end - start - extent) / 2, 0, margin);
  return std::max(start + room, std::min(wanted, end - room - extent));
}

QPoint inside(const QRect& available, const QPoint& wanted, const QSize& panel) {
  return {clampedStart(wanted.x(), available.x(), endX(available), panel.width()),
          clampedStart(wanted.y(), available.y(), endY(available), panel.height())};
}

QPoint positionInCornerNextTo(const QPoint& click, const QSize& panel, const QRect& available) {
  const Qt::Corner corner = cornerNextTo(click, available);
  const bool isRight = corner == Qt::TopRightCorner || corner == Qt::BottomRightCorner;
  const bool isBottom = corner == Qt::BottomLeftCorner || corner == Qt::BottomRightCorner;
  return {isRight ? endX(available) - panel.width() : available.x(),
          isBottom ? endY(available) - panel.height() : available.y()};
}

/// A bar reduces the available screen, so an icon in a vertical bar is left or right of it.
bool isInVerticalBar(const QPoint& icon, const QRect& available) {
  const bool isBeside = icon.x() < available.x() || icon.x() >= endX(available);
  const bool isAboveOrBelow = icon.y() < available.y() || icon.y() >= endY(available);
  return isBeside && !isAboveOrBelow;
}

QPoint nextToIcon(const QRect& icon, const QSize& panel, const QRect& available) {
  const QPoint center = icon.center();
  if (isInVerticalBar(center, available)) {
    const bool isAtLeft = center.x() < available.x();
    return {isAtLeft ? endX(icon) : icon.x() - panel.width(), center.y() - panel.height() / 2};
  }
  const bool isInUpperHalf = center.y() <= available.center().y();
  return {center.x() - panel.width() / 2, isInUpperHalf ? endY(icon) : icon.y() - panel.height()};
}

} // namespace

QPoint panelPosition(const QRect& iconGeometry, const QPoint& click, const QSize& panel,
                     const QRect& availableScreen) {
  const QPoint wanted = iconGeometry.isEmpty()
                            ? positionInCornerNextTo(click, panel, availableScreen)
                            : nextToIcon(iconGeometry, panel, availableScreen);
  return inside(availableScreen, wanted, panel);
}

} // namespace tamberline
