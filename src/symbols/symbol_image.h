// Symbols as images in one colour, sharp at any ratio of pixels to points.
#pragma once

#include <QCache>
#include <QColor>
#include <QImage>

#include <string>
#include <string_view>

namespace tamberline {

/// A square of `sizePoints`, transparent if the platform does not have the symbol.
QImage symbolImage(std::string_view symbol, const QColor& color, qreal sizePoints,
                   qreal devicePixelRatio);

/// Keeps the most recently used images, within a memory limit. One thread at a time.
class SymbolImageCache {
public:
  static constexpr qsizetype defaultCapacityBytes = 1 << 20;

  explicit SymbolImageCache(qsizetype capacityBytes = defaultCapacityBytes);

  QImage image(std::string_view symbol, const QColor& color, qreal sizePoints,
               qreal devicePixelRatio);
  qsizetype usedBytes() const;

private:
  struct Key {
    std::string symbol;
    QRgb color;
    qreal sizePoints;
    qreal devicePixelRatio;

    bool operator==(const Key&) const = default;
  };
  friend size_t qHash(const Key& key, size_t seed);

  QCache<Key, QImage> images_;
};

} // namespace tamberline
