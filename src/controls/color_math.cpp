#include "controls/color_math.h"

#include <algorithm>
#include <cmath>

namespace tamberline {
namespace {

double linear(double channel) {
  constexpr double threshold = 0.04045;
  return channel <= threshold ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
         0.0722 * linear(color.blueF());
}

} // namespace

double contrastRatio(const QColor& first, const QColor& second) {
  constexpr double glare = 0.05;
  const auto [darker, lighter] = std::minmax({luminance(first), luminance(second)});
  return (lighter + glare) / (darker + glare);
}

QColor blended(const QColor& over, const QColor& under, double share) {
  const auto mix = [share](float top, float bottom) {
    return static_cast<float>(share * top + (1 - share) * bottom);
  };
  return QColor::fromRgbF(mix(over.redF(), under.redF()), mix(over.greenF(), under.greenF()),
                          mix(over.blueF(), under.blueF()));
}

QColor readableOn(const std::vector<QColor>& backgrounds, const QColor& color, double ratio) {
  const bool isOnLight = luminance(backgrounds.front()) > 0.18;
  const QColor end = isOnLight ? Qt::black : Qt::white;
  constexpr int steps = 50;
  for (int step = 0; step < steps; ++step) {
    const QColor candidate = blended(end, color, static_cast<double>(step) / steps);
    if (std::all_of(backgrounds.begin(), backgrounds.end(), [&](const QColor& background) {
          return contrastRatio(candidate, background) >= ratio;
        })) {
      return candidate;
    }
  }
  return end;
}

} // namespace tamberline
