#include "platform/linux_desktop/layer_shell.h"

namespace tamberline {

std::unique_ptr<WindowPlaces> layerShellPlaces() {
  return nullptr;
}

} // namespace tamberline
