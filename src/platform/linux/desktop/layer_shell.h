#pragma once

#include "desktop/window_places.h"

#include <memory>

namespace tamberline {

/// The places of a Wayland desktop that holds windows in corners (layer-shell). Null where the
/// desktop or this build does not know of that. After the application object is made.
std::unique_ptr<WindowPlaces> layerShellPlaces();

} // namespace tamberline
