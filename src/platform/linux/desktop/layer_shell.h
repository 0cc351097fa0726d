#pragma once

#include "desktop/window_places.h"

#include <memory>

namespace tamberline {

/// WindowPlaces for a Wayland desktop that can hold windows in corners (layer-shell). Null if the
/// desktop or this build does not support it. Requires the application object.
std::unique_ptr<WindowPlaces> layerShellPlaces();

} // namespace tamberline
