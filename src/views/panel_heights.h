// The height of the panel, in points.
#pragma once

#include <optional>

namespace tamberline {

/// The height that shows the whole list with everything around it, within the limits of the screen.
/// `chromeBaseline` is the height of everything but the list while there is no search, so that the
/// window does not grow with the suggestions. `screenHeight` is the available height of the screen;
/// absent without a screen.
double windowTotalHeight(double chromeBaseline, double listHeight,
                         std::optional<double> screenHeight);

/// The height left for the list when everything else needs `chromeHeight`.
double listAreaHeight(double totalHeight, double chromeHeight);

/// The max height of the suggestions before they push the list out of the window.
double maxSuggestionsHeight(double totalHeight, double chromeBaseline);

} // namespace tamberline
