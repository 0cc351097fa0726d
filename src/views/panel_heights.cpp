#include "views/panel_heights.h"

#include <algorithm>

namespace tamberline {
namespace {

constexpr double dividers = 2;
constexpr double leastListArea = 60;
constexpr double screenMargin = 40;
constexpr double greatestWithoutScreen = 1360;

} // namespace

double windowTotalHeight(double chromeBaseline, double listHeight,
                         std::optional<double> screenHeight) {
  const double greatest = screenHeight ? *screenHeight - screenMargin : greatestWithoutScreen;
  return std::min(chromeBaseline + dividers + listHeight, greatest);
}

double listAreaHeight(double totalHeight, double chromeHeight) {
  return std::max(leastListArea, totalHeight - chromeHeight - dividers);
}

double greatestSuggestionsHeight(double totalHeight, double chromeBaseline) {
  return std::max(leastListArea, totalHeight - chromeBaseline - dividers - leastListArea);
}

} // namespace tamberline
