#include "controls/arc.h"

#include <QPainter>

#include <algorithm>

namespace tamberline {
namespace {

constexpr double widthShare = 0.12; // of the diameter
constexpr int sixteenthsOfDegree = 16;

} // namespace

void Arc::paint(QPainter* painter) {
  const double diameter = std::min(width(), height());
  const double lineWidth = diameter * widthShare;
  QRectF circle(0, 0, diameter - 2 * lineWidth, diameter - 2 * lineWidth);
  circle.moveCenter(boundingRect().center());
  painter->setPen(QPen(color(), lineWidth, Qt::SolidLine, Qt::RoundCap));
  painter->drawArc(circle, 90 * sixteenthsOfDegree, -270 * sixteenthsOfDegree);
}

} // namespace tamberline
