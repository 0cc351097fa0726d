// The part of PortScanner that distinguishes the volumes of a scan from others mounted later in
// their place.
#include "scanner/port_scanner.h"
#include "scanner/volume_drives.h"

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

using Identities = std::map<std::string, VolumeIdentity>;

/// The identities of the volumes whose folder can be opened.
Identities identitiesOf(const std::set<std::string>& mountPoints, VolumeFiles& volumes) {
  Identities identities;
  for (const std::string& mountPoint : mountPoints) {
    if (const std::unique_ptr<VolumeFolder> folder = volumes.openFolder(mountPoint)) {
      identities.emplace(mountPoint, folder->identity());
    }
  }
  return identities;
}

} // namespace

/// Runs after a scan; no scan waits for it, because a drive that no longer responds must not block
/// scans. For the same reason only one runs at a time, so that blocked background threads do not
/// add up.
QCoro::Task<> PortScanner::identifyVolumes(std::shared_ptr<PortScanner> self) {
  const std::shared_ptr<VolumeFiles> volumes = self->outside_.volumes;
  self->mustIdentifyAgain_ = volumes != nullptr;
  if (volumes == nullptr || self->isIdentifying_) {
    co_return;
  }
  self->isIdentifying_ = true;
  while (std::exchange(self->mustIdentifyAgain_, false)) {
    const std::set<std::string> mountPoints = mountPointsIn(self->portTree.get());
    if (!mountPoints.empty()) {
      InBackground<Identities> looking(self->outside_.acquisition.queue, [volumes, mountPoints] {
        return identitiesOf(mountPoints, *volumes);
      });
      self->takeIdentities(co_await looking);
    }
  }
  self->isIdentifying_ = false;
}

/// Removes the results of volumes in whose place another one is mounted now.
void PortScanner::takeIdentities(std::map<std::string, VolumeIdentity> identities) {
  auto phases = benchmarks.get();
  std::erase_if(measuredVolumes_, [&](const auto& measured) {
    const auto present = identities.find(measured.first);
    const bool isAnother = present != identities.end() &&
                           !present->second.isSameVolumeAs(measured.second) &&
                           !isBeingMeasured(measured.first);
    if (isAnother) {
      phases.erase(measured.first);
    }
    return isAnother;
  });
  benchmarks.set(std::move(phases));
  shownVolumes_ = std::move(identities);
}

/// Also absent if the volume has not been identified since it was first shown.
std::optional<VolumeIdentity> PortScanner::identityOf(const std::string& mountPoint) const {
  const auto found = shownVolumes_.find(mountPoint);
  return found == shownVolumes_.end() ? std::nullopt : std::optional(found->second);
}

bool PortScanner::isShown(const std::string& mountPoint) const {
  return mountPointsIn(portTree.get()).contains(mountPoint);
}

bool PortScanner::isDriveInUse(const std::string& mountPoint) const {
  const std::set<std::string> mountPoints = mountPointsOfDrive(portTree.get(), mountPoint);
  return std::any_of(mountPoints.begin(), mountPoints.end(),
                     [&](const std::string& volume) { return usedDrives_.contains(volume); });
}

/// Also true while a benchmark waits for the drive.
bool PortScanner::isDriveMeasured(const std::string& mountPoint) const {
  const std::set<std::string> mountPoints = mountPointsOfDrive(portTree.get(), mountPoint);
  return std::any_of(mountPoints.begin(), mountPoints.end(),
                     [&](const std::string& volume) { return isBeingMeasured(volume); });
}

void PortScanner::removeVanishedVolumes() {
  const std::set<std::string> mountPoints = mountPointsIn(portTree.get());
  const auto isVanished = [&](const auto& entry) { return !mountPoints.contains(entry.first); };
  auto phases = benchmarks.get();
  std::erase_if(phases,
                [&](const auto& entry) { return isVanished(entry) && !entry.second.isRunning(); });
  benchmarks.set(std::move(phases));
  std::erase_if(measuredVolumes_, isVanished);
  std::erase_if(shownVolumes_, isVanished);
}

} // namespace tamberline
