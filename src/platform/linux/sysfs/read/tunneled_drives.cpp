#include "platform/linux/sysfs/read/tunneled_drives.h"

#include "base/letter_case.h"
#include "base/text.h"
#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/device_folders.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

bool isTunneled(const PciPath& path) {
  return path.functions.size() > 1 && path.isRemovable();
}

fs::path wholeDrive(const fs::path& blockDevice) {
  const fs::path above = blockDevice.parent_path();
  const bool isPartition = blockDevice.filename().string().starts_with(above.filename().string()) &&
                           doesExist(above / "dev");
  return isPartition ? above : blockDevice;
}

/// Reads an attribute that describes the drive, from its device, its controller or its own folder.
std::string tellingText(const fs::path& drive, const char* name) {
  for (const fs::path& folder : {drive / "device", drive.parent_path(), drive}) {
    if (const auto text = readText(folder / name)) {
      return *text;
    }
  }
  return {};
}

std::size_t depthOf(const RouterAddress& router) {
  return router.isHost() ? 0 : depthOf(router.parent()) + 1;
}

RouterAddress firstOf(const RouterAddress& router) {
  return router.parent().isHost() ? router : firstOf(router.parent());
}

bool hasEnclosureName(const Router& router) {
  constexpr std::array<std::string_view, 6> others = {"dock",     "hub",     "station",
                                                      "breakout", "display", "monitor"};
  const std::string name = lowerCased(router.name);
  return std::none_of(others.begin(), others.end(),
                      [&](std::string_view word) { return contains(name, word); });
}

using Routers = std::map<RouterAddress, Router>;

/// The only candidate whose name can be that of a drive enclosure; absent if there are several or
/// none.
std::optional<RouterAddress> onlyEnclosure(const std::vector<RouterAddress>& candidates,
                                           const Routers& routers) {
  std::optional<RouterAddress> found;
  for (const RouterAddress& candidate : candidates) {
    if (hasEnclosureName(routers.at(candidate))) {
      if (found) {
        return std::nullopt;
      }
      found = candidate;
    }
  }
  return found;
}

/// The routers that can tunnel PCI. A router that is not authorised, or that is another computer,
/// cannot.
std::vector<RouterAddress> routersWithPci(const Routers& routers) {
  std::vector<RouterAddress> found;
  for (const auto& [address, router] : routers) {
    if (!address.isHost() && router.isAuthorized.value_or(false)) {
      found.push_back(address);
    }
  }
  return found;
}

/// The router in a chain at the depth that the number of PCI functions indicates. Each router adds
/// two bridges, between the port's own bridge and the drive.
RouterAddress inChain(const RouterAddress& first, const PciPath& path, const Routers& routers) {
  const std::size_t depth = std::max<std::size_t>((path.functions.size() - 2) / 2, 1);
  std::vector<RouterAddress> atDepth;
  for (const RouterAddress& router : routersWithPci(routers)) {
    if (firstOf(router) == first && depthOf(router) == depth) {
      atDepth.push_back(router);
    }
  }
  if (atDepth.size() == 1) {
    return atDepth.front();
  }
  return onlyEnclosure(atDepth, routers).value_or(first);
}

std::optional<RouterAddress> routerOf(const PciPath& path, const std::set<fs::path>& tunnels,
                                      const Routers& routers) {
  const std::vector<RouterAddress> all = routersWithPci(routers);
  std::set<RouterAddress> firsts;
  for (const RouterAddress& router : all) {
    firsts.insert(firstOf(router));
  }
  if (firsts.size() == tunnels.size()) {
    const auto tunnel = tunnels.find(path.functions.front());
    return inChain(*std::next(firsts.begin(), std::distance(tunnels.begin(), tunnel)), path,
                   routers);
  }
  return onlyEnclosure(all, routers);
}

} // namespace

TunneledDrives::TunneledDrives(const fs::path& sysfs) {
  const fs::path folder = busFolder(sysfs, "pci");
  for (const std::string& name : namesIn(folder)) {
    const PciPath path =
        pciPathOf((folder / linkTarget(folder / name).value_or("")).lexically_normal());
    if (isTunneled(path)) {
      tunnels_.insert(path.functions.front());
    }
  }
}

Drive* TunneledDrives::driveOf(const fs::path& blockDevice) {
  const fs::path drive = wholeDrive(blockDevice.lexically_normal());
  const auto known = drives_.find(drive);
  if (known != drives_.end()) {
    return &known->second.drive;
  }
  PciPath path = pciPathOf(drive);
  if (!isTunneled(path)) {
    return nullptr;
  }
  tunnels_.insert(path.functions.front());
  std::string name = tellingText(drive, "model");
  PlacedDrive placed{.path = std::move(path),
                     .drive = {.name = name.empty() ? drive.filename().string() : std::move(name),
                               .serialNumber = tellingText(drive, "serial"),
                               .volumes = {}}};
  return &drives_.emplace(drive, std::move(placed)).first->second.drive;
}

/// The first router of a chain may have been removed while the machine was read.
void TunneledDrives::giveTo(ThunderboltTopology& thunderbolt) && {
  for (auto& [folder, placed] : drives_) {
    const auto address = routerOf(placed.path, tunnels_, thunderbolt.routers);
    const auto router = address ? thunderbolt.routers.find(*address) : thunderbolt.routers.end();
    if (router != thunderbolt.routers.end()) {
      router->second.drives.push_back(std::move(placed.drive));
    }
  }
}

} // namespace tamberline::sysfs
