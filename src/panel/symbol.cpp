#include "panel/symbol.h"

#include "panel/panel_context.h"

#include <QPainter>
#include <QQmlEngine>
#include <QQuickWindow>

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
  painter->drawImage(QPointF(0, 0), PanelContext::of(*engine).symbols().image(
                                        name_.toStdString(), color_, width(),
                                        window()->effectiveDevicePixelRatio()));
}

} // namespace tamberline
