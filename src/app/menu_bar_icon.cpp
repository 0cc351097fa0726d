#include "app/menu_bar_icon.h"

#include "symbols/symbol_image.h"

#include <QGuiApplication>
#include <QPalette>
#include <QPixmap>

namespace tamberline {
namespace {

constexpr double sizePoints = 18;

} // namespace

QIcon menuBarIcon() {
  const QColor color = QGuiApplication::palette().color(QPalette::WindowText);
  QIcon icon;
  for (const double ratio : {1.0, 2.0, 3.0}) {
    icon.addPixmap(QPixmap::fromImage(symbolImage("cable.connector", color, sizePoints, ratio)));
  }
  icon.setIsMask(true);
  return icon;
}

} // namespace tamberline
