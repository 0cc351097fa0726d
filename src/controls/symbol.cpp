#include "controls/symbol.h"

#include "controls/engine_objects.h"
#include "symbols/symbol_image.h"

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
  auto* const images = engine == nullptr ? nullptr : engineObject<SymbolImageCache>(*engine);
  if (images == nullptr || window() == nullptr) {
    return;
  }
  const double size = std::min(width(), height());
  painter->drawImage(
      QPointF((width() - size) / 2, (height() - size) / 2),
      images->image(name_.toStdString(), color_, size, window()->effectiveDevicePixelRatio()));
}

} // namespace tamberline
