// How high the panel is, in points.
#pragma once

#include <optional>

namespace tamberline {

/// The height that shows the whole list below what stands around it, as far as the screen allows.
/// `chromeBaseline` is the height of everything but the list while nothing is searched for, so
/// that the window does not grow with the suggestions. `screenHeight` is what the screen leaves
/// visible; absent without a screen.
double windowTotalHeight(double chromeBaseline, double listHeight,
                         std::optional<double> screenHeight);

/// What is left for the list below a chrome of `chromeHeight`.
double listAreaHeight(double totalHeight, double chromeHeight);

/// How high the suggestions may become before they push the list out of the window.
double greatestSuggestionsHeight(double totalHeight, double chromeBaseline);

} // namespace tamberline
