#include "platform/linux/symbols/theme_icons.h"

#include <algorithm>
#include <array>

namespace tamberline {
namespace {

constexpr auto table = std::to_array<SymbolIcon>({
    {"airpods", "devices/22/audio-headset"},
    {"applewatch", "actions/16/clock"},
    {"arrow.clockwise", "actions/16/view-refresh"},
    {"arrow.triangle.branch", "actions/16/vcs-branch"},
    {"arrow.up.circle", "status/22/update-none"},
    {"arrow.up.circle.fill", "status/22/update-none"},
    {"battery.0percent", "status/16/battery-000"},
    {"battery.100percent", "status/16/battery-100"},
    {"battery.100percent.bolt", "status/16/battery-000-charging"},
    {"battery.25percent", "status/16/battery-030"},
    {"battery.50percent", "status/16/battery-050"},
    {"battery.75percent", "status/16/battery-080"},
    {"bolt.fill", "actions/16/quickopen"},
    {"bolt.horizontal", "preferences/32/preferences-desktop-thunderbolt"},
    {"cable.connector", "devices/16/drive-removable-media-usb"},
    {"camera", "devices/16/camera-photo"},
    {"chevron.right", "actions/16/go-next"},
    {"computermouse", "devices/16/input-mouse"},
    {"display", "devices/16/monitor"},
    {"dock.rectangle", "actions/16/dashboard-show"},
    {"eject.circle", "actions/16/media-eject"},
    {"exclamationmark.circle", "emblems/16/vcs-conflicting"},
    {"exclamationmark.triangle", "status/16/data-warning"},
    {"externaldrive", "devices/16/drive-harddisk"},
    {"headphones", "devices/22/audio-headphones"},
    {"hifispeaker", "applets/22/hifi"},
    {"info.circle", "actions/16/help-about"},
    {"ipad", "devices/16/tablet"},
    {"iphone", "devices/16/smartphone"},
    {"ipod", "devices/16/multimedia-player"},
    {"keyboard", "devices/16/input-keyboard"},
    {"magnifyingglass", "actions/16/search"},
    {"minus.circle", "actions/16/process-stop"},
    {"network", "devices/16/network-rj45-female"},
    {"powerplug.fill", "actions/16/network-connect"},
    {"rectangle.compress.vertical", "actions/16/collapse-all"},
    {"rectangle.expand.vertical", "actions/16/expand-all"},
    {"sdcard", "devices/16/media-flash-sd-mmc"},
    {"speaker.wave.2", "status/16/audio-volume-high"},
    {"speedometer", "actions/16/speedometer"},
    {"xmark.circle.fill", "actions/16/window-close"},
});

} // namespace

std::span<const SymbolIcon> symbolTable() {
  return table;
}

std::string_view themeIconName(std::string_view symbol) {
  const auto* const found = std::find_if(
      table.begin(), table.end(), [&](const SymbolIcon& row) { return row.symbol == symbol; });
  return found == table.end() ? std::string_view() : found->themeIcon;
}

} // namespace tamberline
