#include "platform/linux/desktop/bar_tone.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <algorithm>
#include <numeric>
#include <vector>

namespace tamberline {
namespace {

constexpr int halfBright = 128;

} // namespace

BarTone toneAtEdges(const QImage& picture) {
  std::vector<int> grays;
  for (int y = 0; y < picture.height(); ++y) {
    const bool isOuterRow = y == 0 || y == picture.height() - 1;
    const int step = isOuterRow ? 1 : std::max(1, picture.width() - 1);
    for (int x = 0; x < picture.width(); x += step) {
      grays.push_back(qGray(picture.pixel(x, y)));
    }
  }
  if (grays.empty()) {
    return BarTone::unknown;
  }
  const int sum = std::accumulate(grays.begin(), grays.end(), 0);
  return sum < halfBright * static_cast<int>(grays.size()) ? BarTone::dark : BarTone::light;
}

BarTone barToneAround(const QRect& icon) {
  QScreen* const screen = icon.isEmpty() ? nullptr : QGuiApplication::screenAt(icon.center());
  if (screen == nullptr) {
    return BarTone::unknown;
  }
  const QPoint corner = icon.topLeft() - screen->geometry().topLeft();
  return toneAtEdges(
      screen->grabWindow(0, corner.x(), corner.y(), icon.width(), icon.height()).toImage());
}

} // namespace tamberline
