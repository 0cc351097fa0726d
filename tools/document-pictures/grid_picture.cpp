#include "grid_picture.h"

#include "app/look.h"
#include "controls/theme.h"
#include "panel/panel_size.h"

#include <QPainter>
#include <QString>

#include <vector>

namespace tamberline {
namespace {

constexpr double cardEdge = 12;
constexpr double cardPadding = 12;
constexpr double rowInset = 6;
constexpr double depthStep = 16;
constexpr int labelHeight = 18;

struct Line {
  QString name;
  double x = 0; // in points
};

std::vector<Line> gridLines() {
  const Theme theme(1);
  const double symbols = cardEdge + cardPadding + rowInset;
  const double text = symbols + theme.textIndent();
  const double right = PanelSize::width - cardEdge - cardPadding;
  return {{"cards", cardEdge},
          {"symbols", symbols},
          {"text", text},
          {"text, one level deeper", text + depthStep},
          {"right edge", right - theme.chevronWidth()},
          {"tints", right}};
}

} // namespace

QImage withGrid(const QImage& panel) {
  const double scale = panel.width() / PanelSize::width;
  const std::vector<Line> lines = gridLines();
  const int band = qRound(labelHeight * scale * static_cast<double>(lines.size()));
  QImage picture(panel.width(), panel.height() + band, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  painter.drawImage(0, band, panel);
  QFont font = ownFont();
  font.setPixelSize(qRound(11 * scale));
  painter.setFont(font);
  painter.setPen(QPen(QColor(0xd0, 0x00, 0x90), qRound(scale)));
  int top = 0;
  for (const Line& line : lines) {
    const int x = qRound(line.x * scale);
    const int height = qRound(labelHeight * scale);
    painter.drawLine(x, top + height / 4, x, picture.height());
    const bool isAtRight = x > picture.width() / 2;
    const QRect label(isAtRight ? 0 : x + 8, top, isAtRight ? x - 8 : picture.width() - x, height);
    const int alignment = isAtRight ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(label, static_cast<int>(Qt::AlignVCenter) | alignment, line.name);
    top += height;
  }
  return picture;
}

} // namespace tamberline
