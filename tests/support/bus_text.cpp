#include "support/bus_text.h"

namespace tamberline {
namespace {

void append(const SharedList<USBDevice>& devices, const std::string& indent, std::string& text) {
  for (const USBDevice& device : devices) {
    text += indent + device.name + (device.speed.empty() ? "" : " " + device.speed) + "\n";
    append(device.children, indent + "  ", text);
  }
}

} // namespace

std::string busText(const std::vector<USBBus>& buses) {
  std::string text;
  for (const USBBus& bus : buses) {
    text += bus.rawName + "\n";
    append(bus.devices, "  ", text);
  }
  return text;
}

} // namespace tamberline
