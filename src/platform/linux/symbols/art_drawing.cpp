#include "platform/linux/symbols/art_drawing.h"

#include "platform/linux/symbols/grid_fitting.h"

#include <QByteArray>
#include <QPainter>
#include <QXmlStreamReader>

namespace tamberline {
namespace {

constexpr double gridPoints = 14;

/// The colours and the width of the line of an element. Invalid colours are not painted.
struct Style {
  QColor fill;
  QColor stroke;
  double strokeWidth = 1;
};

QColor colorOf(QStringView name) {
  return name == QLatin1String("none") ? QColor() : QColor(name);
}

Style styleOf(const QXmlStreamAttributes& attributes, Style style) {
  if (attributes.hasAttribute(QLatin1String("fill"))) {
    style.fill = colorOf(attributes.value(QLatin1String("fill")));
  }
  if (attributes.hasAttribute(QLatin1String("stroke"))) {
    style.stroke = colorOf(attributes.value(QLatin1String("stroke")));
  }
  if (attributes.hasAttribute(QLatin1String("stroke-width"))) {
    style.strokeWidth = attributes.value(QLatin1String("stroke-width")).toDouble();
  }
  return style;
}

QPainterPath outlineOf(const QXmlStreamReader& element, const GridFitting& fitting) {
  const QXmlStreamAttributes attributes = element.attributes();
  const auto number = [&](const char* name) {
    return attributes.value(QLatin1String(name)).toDouble();
  };
  QPainterPath outline;
  if (element.name() == QLatin1String("path")) {
    outline = fitting.path(attributes.value(QLatin1String("d")));
  } else if (element.name() == QLatin1String("circle")) {
    const double radius = number("r");
    outline.addEllipse(fitting.fitted(
        QRectF(number("cx") - radius, number("cy") - radius, radius * 2, radius * 2)));
  } else if (element.name() == QLatin1String("rect")) {
    const double corner = fitting.scaled(number("rx"));
    outline.addRoundedRect(
        fitting.fitted(QRectF(number("x"), number("y"), number("width"), number("height"))), corner,
        corner);
  }
  return outline;
}

void paint(QPainter& painter, const QXmlStreamReader& element, const Style& style,
           double pixelsPerPoint) {
  const bool isStroked = style.stroke.isValid();
  const GridFitting fitting(pixelsPerPoint, isStroked ? style.strokeWidth : 0);
  painter.setBrush(style.fill.isValid() ? QBrush(style.fill) : QBrush(Qt::NoBrush));
  painter.setPen(isStroked ? QPen(style.stroke, fitting.strokePixels(), Qt::SolidLine, Qt::RoundCap,
                                  Qt::RoundJoin)
                           : QPen(Qt::NoPen));
  painter.drawPath(outlineOf(element, fitting));
}

} // namespace

QImage drawnArt(std::string_view svg, int pixels) {
  if (pixels <= 0) {
    return {};
  }
  QXmlStreamReader reader(QByteArray::fromRawData(svg.data(), static_cast<qsizetype>(svg.size())));
  if (!reader.readNextStartElement() || reader.name() != QLatin1String("svg")) {
    return {};
  }
  const Style style = styleOf(reader.attributes(), {});
  QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  while (reader.readNextStartElement()) {
    paint(painter, reader, styleOf(reader.attributes(), style), pixels / gridPoints);
    reader.skipCurrentElement();
  }
  return image;
}

} // namespace tamberline
