#include "platform/desktop.h"

namespace tamberline {

/// The system's own way of drawing is the quick one here.
void chooseGraphics() {}

} // namespace tamberline
