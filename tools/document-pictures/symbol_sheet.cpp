#include "symbol_sheet.h"

#include "app/look.h"
#include "platform/linux/symbols/symbol_art.h"
#include "symbols/symbol_image.h"

#include <QPainter>

#include <array>

namespace tamberline {
namespace {

constexpr std::array sizes = {14, 21, 28};
constexpr int columns = 2;
constexpr int nameWidth = 190;
constexpr int gap = 10;
constexpr int rowHeight = 36;
constexpr int cardWidth = gap + 14 + gap + 21 + gap + 28 + gap;
constexpr int cellWidth = nameWidth + 2 * cardWidth + gap;

void drawCard(QPainter& painter, const QPoint& corner, std::string_view symbol,
              const QPalette& palette) {
  const QRect card(corner, QSize(cardWidth, rowHeight));
  painter.fillRect(card, palette.color(QPalette::Base));
  int left = corner.x() + gap;
  for (const int size : sizes) {
    const QImage image = symbolImage(symbol, palette.color(QPalette::WindowText), size, 1);
    painter.drawImage(left, corner.y() + (rowHeight - size) / 2, image);
    left += size + gap;
  }
}

} // namespace

QImage symbolSheet() {
  const auto symbols = symbolArt();
  const int count = static_cast<int>(symbols.size());
  const int rows = (count + columns - 1) / columns;
  QImage sheet(columns * cellWidth, rows * rowHeight, QImage::Format_RGB32);
  sheet.fill(lightPalette().color(QPalette::Base));
  QPainter painter(&sheet);
  painter.setFont(ownFont());
  for (int index = 0; index < count; ++index) {
    const SymbolArt& row = symbols[static_cast<std::size_t>(index)];
    const QPoint corner(index / rows * cellWidth, index % rows * rowHeight);
    painter.setPen(lightPalette().color(QPalette::WindowText));
    painter.drawText(
        QRect(corner.x() + gap, corner.y(), nameWidth - gap, rowHeight), Qt::AlignVCenter,
        QString::fromUtf8(row.symbol.data(), static_cast<qsizetype>(row.symbol.size())));
    drawCard(painter, corner + QPoint(nameWidth, 0), row.symbol, lightPalette());
    drawCard(painter, corner + QPoint(nameWidth + cardWidth, 0), row.symbol, darkPalette());
  }
  return sheet;
}

} // namespace tamberline
