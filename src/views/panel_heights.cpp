#include "views/panel_heights.h"

#include <algorithm>

namespace tamberline {
namespace {

constexpr double dividers = 2;
constexpr double minListArea = 60;
constexpr double screenMargin = 40;
constexpr double maxHeightWithoutScreen = 1360;

} // namespace

double windowTotalHeight(double chromeBaseline, double listHeight,
                         std::optional<double> screenHeight) {
  const double greatest = screenHeight ? *screenHeight - screenMargin : maxHeightWithoutScreen;
  return std::min(chromeBaseline + dividers + listHeight, greatest);
}

double listAreaHeight(double totalHeight, double chromeHeight) {
  return std::max(minListArea, totalHeight - chromeHeight - dividers);
}

double maxSuggestionsHeight(double totalHeight, double chromeBaseline) {
  return std::max(minListArea, totalHeight - chromeBaseline - dividers - minListArea);
}

} // namespace tamberline
