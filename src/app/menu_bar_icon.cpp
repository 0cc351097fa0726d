#include "app/menu_bar_icon.h"

#include "symbols/symbol_image.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

namespace tamberline {
namespace {

constexpr double sizePoints = 18;
constexpr double rimPoints = 1;
constexpr QColor darkInk(0x24, 0x24, 0x26);
constexpr QColor lightInk(0xf5, 0xf5, 0xf7);

QImage inOneColor(const QColor& color, double ratio) {
  return symbolImage("cable.connector", color, sizePoints, ratio);
}

/// The rim is the shape itself, shifted in all directions by the rim's width.
QImage withRim(double ratio) {
  const QImage rim = inOneColor(lightInk, ratio);
  QImage image(rim.size(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  for (const double dx : {-rimPoints, 0.0, rimPoints}) {
    for (const double dy : {-rimPoints, 0.0, rimPoints}) {
      painter.drawImage(QPointF(dx, dy), rim);
    }
  }
  painter.drawImage(QPointF(0, 0), inOneColor(darkInk, ratio));
  return image;
}

QImage drawing(BarTone tone, double ratio) {
  switch (tone) {
  case BarTone::asPalette:
    return inOneColor(QGuiApplication::palette().color(QPalette::WindowText), ratio);
  case BarTone::dark:
    return inOneColor(lightInk, ratio);
  case BarTone::light:
    return inOneColor(darkInk, ratio);
  case BarTone::unknown:
    break;
  }
  return withRim(ratio);
}

} // namespace

QIcon menuBarIcon(BarTone tone) {
  QIcon icon;
  for (const double ratio : {1.0, 2.0, 3.0}) {
    icon.addPixmap(QPixmap::fromImage(drawing(tone, ratio)));
  }
  icon.setIsMask(true);
  return icon;
}

} // namespace tamberline
