#include "panel/symbol.h"

#include "panel/panel_context.h"

#include <QPainter>
#include <QQmlEngine>
#include <QQuickWindow>

#include <algorithm>

namespace tamberline {

void Symbol::setName(const QString& name) {
  if (name != name_) {
    name_ = name;
    emit nameChanged();
    update();
  }
}

void Symbol::setColor(const QColor& color) {
  if (color != color_) {
    color_ = color;
    emit colorChanged();
    update();
  }
}

void Symbol::paint(QPainter* painter) {
  const QQmlEngine* const engine = qmlEngine(this);
  if (engine == nullptr || window() == nullptr) {
    return;
  }
  const double size = std::min(width(), height());
  painter->drawImage(QPointF((width() - size) / 2, (height() - size) / 2),
                     PanelContext::of(*engine).symbols().image(
                         name_.toStdString(), color_, size, window()->effectiveDevicePixelRatio()));
}

} // namespace tamberline
