#include "symbols/symbol_image.h"

#include "symbols/symbol_drawing.h"

#include <QByteArrayView>
#include <QHashFunctions>

#include <algorithm>
#include <memory>

namespace tamberline {
namespace {

/// How much of a pixel belongs to the symbol, from 0 to 255. White does not: a mark on a filled
/// shape is drawn in white, and in one colour it can only be shown as a hole.
int coverage(QRgb pixel) {
  constexpr int lightestInk = 96;
  const int whiteness = std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)});
  const int ink = std::clamp((255 - whiteness) * 255 / (255 - lightestInk), 0, 255);
  return qAlpha(pixel) * ink / 255;
}

QImage transparentSquare(int pixels) {
  QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

QImage recolored(const QImage& drawing, const QColor& color) {
  const QImage source = drawing.convertToFormat(QImage::Format_ARGB32);
  QImage image(source.size(), QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < source.height(); ++y) {
    for (int x = 0; x < source.width(); ++x) {
      const int alpha = coverage(source.pixel(x, y)) * color.alpha() / 255;
      image.setPixel(x, y, qPremultiply(qRgba(color.red(), color.green(), color.blue(), alpha)));
    }
  }
  return image;
}

QImage recoloredDrawing(std::string_view symbol, const QColor& color, int pixels) {
  const QImage drawing = pixels > 0 ? symbolDrawing(symbol, pixels) : QImage();
  return drawing.isNull() ? transparentSquare(pixels) : recolored(drawing, color);
}

} // namespace

QImage symbolImage(std::string_view symbol, const QColor& color, qreal sizePoints,
                   qreal devicePixelRatio) {
  const int pixels = qRound(sizePoints * devicePixelRatio);
  QImage image = recoloredDrawing(symbol, color, pixels);
  image.setDevicePixelRatio(devicePixelRatio);
  return image;
}

size_t qHash(const SymbolImageCache::Key& key, size_t seed) {
  return qHashMulti(seed, QByteArrayView(key.symbol), key.color, key.sizePoints,
                    key.devicePixelRatio);
}

SymbolImageCache::SymbolImageCache(qsizetype capacityBytes) : images_(capacityBytes) {}

QImage SymbolImageCache::image(std::string_view symbol, const QColor& color, qreal sizePoints,
                               qreal devicePixelRatio) {
  const Key key{std::string(symbol), color.rgba(), sizePoints, devicePixelRatio};
  if (const QImage* known = images_.object(key)) {
    return *known;
  }
  QImage image = symbolImage(symbol, color, sizePoints, devicePixelRatio);
  images_.insert(key, std::make_unique<QImage>(image).release(), image.sizeInBytes());
  return image;
}

qsizetype SymbolImageCache::usedBytes() const {
  return images_.totalCost();
}

} // namespace tamberline
