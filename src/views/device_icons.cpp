#include "views/device_icons.h"

#include "base/letter_case.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>

namespace tamberline {
namespace {

/// A device of which nothing is known. The plug of "cable.connector" stands for the program itself.
constexpr std::string_view anyDevice = "memorychip";

struct KeywordIcon {
  std::string_view keyword;
  std::string_view symbol;
};

std::string iconByName(std::string_view name, std::span<const KeywordIcon> table,
                       std::string_view otherwise) {
  const std::string lowerCaseName = " " + lowerCased(name) + " ";
  const auto found = std::find_if(table.begin(), table.end(), [&](const KeywordIcon& row) {
    return contains(lowerCaseName, row.keyword);
  });
  return std::string(found == table.end() ? otherwise : found->symbol);
}

} // namespace

std::string iconFor(const USBDevice& device) {
  static constexpr auto table = std::to_array<KeywordIcon>({
      {"iphone", "iphone"},
      {"ipad", "ipad"},
      {"ipod", "ipod"},
      {"watch", "applewatch"},
      {"airpods", "airpods"},
      {"speaker", "speaker.wave.2"},
      {"audio", "speaker.wave.2"},
      {"ethernet", "network"},
      {" lan ", "network"},
      {"camera", "camera"},
      {"webcam", "camera"},
      {"keyboard", "keyboard"},
      {"mouse", "computermouse"},
      {"trackpad", "computermouse"},
      {"headphone", "headphones"},
      {"headset", "headphones"},
      {"earphone", "headphones"},
      {"card reader", "sdcard"},
      {"cardreader", "sdcard"},
      {"sd reader", "sdcard"},
      {"ssd", "externaldrive"},
      {"disk", "externaldrive"},
      {"drive", "externaldrive"},
      {"storage", "externaldrive"},
      {"stick", "externaldrive"},
      {"flash", "externaldrive"},
      {"adapter", "cable.connector"},
      {"serial", "cable.connector"},
      {"cable", "cable.connector"},
      {"printer", "printer"},
      {"display", "display"},
      {"monitor", "display"},
      {"midi", "pianokeys"},
      {"piano", "pianokeys"},
      {"drum", "pianokeys"},
  });
  if (device.isTunneledDrive) {
    return "externaldrive";
  }
  if (device.name == unnamedHub) {
    return "arrow.triangle.branch";
  }
  const bool isHub = !device.children.empty() || contains(lowerCased(device.name), "hub");
  return iconByName(device.name, table, isHub ? "arrow.triangle.branch" : anyDevice);
}

std::string iconFor(const ThunderboltDevice& device) {
  static constexpr auto table = std::to_array<KeywordIcon>({
      {"dock", "dock.rectangle"},
      {"audio", "hifispeaker"},
      {"satellite", "externaldrive"},
      {"display", "display"},
      {"raid", "externaldrive"},
      {"ssd", "externaldrive"},
      {"nvme", "externaldrive"},
      {"drive", "externaldrive"},
      {"hub", "arrow.triangle.branch"},
  });
  return iconByName(device.name, table, anyDevice);
}

} // namespace tamberline
