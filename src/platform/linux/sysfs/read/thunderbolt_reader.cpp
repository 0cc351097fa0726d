#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/device_folders.h"
#include "platform/linux/sysfs/read/device_readers.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <system_error>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

template <typename Number>
std::optional<Number> numberIn(std::string_view text, int base) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number, base);
  return error == std::errc() && rest == end && !text.starts_with('-') ? std::optional(number)
                                                                       : std::nullopt;
}

/// The kernel reports lanes from the router's side, so the receiving lanes ("rx") are those from
/// the host.
LinkWay readWay(const fs::path& folder, const std::string& side) {
  return {.speedOfLane = readTextOrNothing(folder / (side + "_speed")),
          .lanes = readNumber(folder / (side + "_lanes"))};
}

Router readRouter(const fs::path& folder) {
  const auto authorized = readNumber(folder / "authorized");
  return {
      .name = readTextOrNothing(folder / "device_name"),
      .vendor = readTextOrNothing(folder / "vendor_name"),
      .uid = readTextOrNothing(folder / "unique_id"),
      .firmwareVersion = readTextOrNothing(folder / "nvm_version"),
      .fromHost = readWay(folder, "rx"),
      .toHost = readWay(folder, "tx"),
      .generation = readNumber(folder / "generation"),
      .isAuthorized = authorized ? std::optional(*authorized > 0) : std::nullopt,
  };
}

void addHostPorts(const fs::path& folder, const RouterAddress& host, std::vector<Usb4Port>& ports) {
  constexpr std::string_view prefix = "usb4_port";
  for (const std::string& name : namesIn(folder)) {
    const auto number =
        name.starts_with(prefix)
            ? numberIn<std::uint8_t>(std::string_view(name).substr(prefix.size()), 10)
            : std::nullopt;
    if (number) {
      ports.push_back({.host = host,
                       .number = *number,
                       .connector = linkedConnector(folder / name),
                       .location = physicalLocation(folder / name)});
    }
  }
}

bool isBefore(const Usb4Port& left, const Usb4Port& right) {
  return left.host == right.host ? left.number < right.number : left.host < right.host;
}

} // namespace

ThunderboltTopology readThunderbolt(const fs::path& sysfs) {
  const fs::path folder = busFolder(sysfs, "thunderbolt");
  ThunderboltTopology thunderbolt;
  for (const std::string& name : namesIn(folder)) {
    const auto address = routerAddressOf(name);
    if (!address) {
      continue;
    }
    thunderbolt.routers.insert_or_assign(*address, readRouter(folder / name));
    if (address->isHost()) {
      addHostPorts(folder / name, *address, thunderbolt.hostPorts);
    }
  }
  std::sort(thunderbolt.hostPorts.begin(), thunderbolt.hostPorts.end(), isBefore);
  return thunderbolt;
}

std::optional<RouterAddress> routerAddressOf(std::string_view deviceName) {
  const std::size_t dash = deviceName.find('-');
  if (dash == std::string_view::npos) {
    return std::nullopt;
  }
  const auto domain = numberIn<std::uint16_t>(deviceName.substr(0, dash), 10);
  const auto route = numberIn<std::uint64_t>(deviceName.substr(dash + 1), 16);
  return domain && route ? std::optional(RouterAddress{*domain, *route}) : std::nullopt;
}

} // namespace tamberline::sysfs
