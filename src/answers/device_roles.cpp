#include "answers/device_roles.h"

#include "base/letter_case.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>

namespace tamberline {
namespace {

constexpr auto quietWords = std::to_array<std::string_view>(
    {"keyboard",  "mouse",     "trackpad", "touchpad",   "receiver",    "audio",    "speaker",
     "headphone", "headset",   "earphone", "microphone", "card reader", "reader",   "cardreader",
     "iphone",    "ipad",      "ipod",     "watch",      "airpods",     "phone",    "android",
     "bluetooth", "billboard", "printer",  "controls",   "midi",        "joystick", "gamepad"});
constexpr auto networkWords =
    std::to_array<std::string_view>({"ethernet", " lan ", "-lan ", "gigabit", "10/100", "network"});
constexpr auto driveWords = std::to_array<std::string_view>(
    {"ssd", "hdd", "nvme", "sata", "disk", "drive", "storage", "stick", "flash", "raid"});

bool containsAny(std::string_view name, std::span<const std::string_view> words) {
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return contains(name, word); });
}

} // namespace

DeviceRole roleOf(const USBDevice& device) {
  const std::string name = " " + lowerCased(device.name) + " ";
  if (!device.children.empty() || device.name == unnamedHub || contains(name, "hub")) {
    return DeviceRole::hub;
  }
  if (containsAny(name, quietWords)) {
    return DeviceRole::quiet;
  }
  if (device.isTunneledDrive || !device.volumes.empty() || containsAny(name, driveWords)) {
    return DeviceRole::drive;
  }
  return containsAny(name, networkWords) ? DeviceRole::network : DeviceRole::other;
}

} // namespace tamberline
