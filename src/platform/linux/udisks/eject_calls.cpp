#include "platform/linux/udisks/eject_calls.h"

#include "platform/linux/udisks/disk_objects.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tamberline {
namespace {

/// The relations between the disk service's objects.
class DiskTopology {
public:
  explicit DiskTopology(const DiskObjects& objects) : objects_(objects) {}

  /// The block devices with the volume; several if its file system is on several.
  std::vector<const BlockDevice*> blocksWith(const EjectRequest& volume) const {
    const QByteArray mountPoint = QByteArray::fromStdString(volume.mountPoint);
    std::vector<const BlockDevice*> found;
    for (const BlockDevice& block : objects_.blocks) {
      if (block.mountPoints.contains(mountPoint) &&
          block.deviceNumber == volume.deviceNumber.value_or(block.deviceNumber)) {
        found.push_back(&block);
      }
    }
    return found;
  }

  bool areOnOneDrive(const std::vector<const BlockDevice*>& blocks) const {
    return std::all_of(blocks.begin(), blocks.end(), [&](const BlockDevice* block) {
      return drivePathOf(*block) == drivePathOf(*blocks.front());
    });
  }

  /// The encrypted devices that contain a block device, innermost first.
  std::vector<const BlockDevice*> encryptedDevicesBelow(const BlockDevice& block) const {
    std::vector<const BlockDevice*> devices;
    const BlockDevice* below = byPath(objects_.blocks, block.encryptedDevice);
    // Guards against cyclic replies.
    while (below != nullptr && devices.size() < objects_.blocks.size()) {
      devices.push_back(below);
      below = byPath(objects_.blocks, below->encryptedDevice);
    }
    return devices;
  }

  /// The path of the drive that contains a block device, directly or through encrypted devices;
  /// empty if there is none.
  QString drivePathOf(const BlockDevice& block) const {
    const std::vector<const BlockDevice*> below = encryptedDevicesBelow(block);
    return below.empty() ? block.drive : below.back()->drive;
  }

  const Drive* drive(const QString& path) const { return byPath(objects_.drives, path); }

  std::vector<const BlockDevice*> blocksOf(const Drive& drive) const {
    std::vector<const BlockDevice*> blocks;
    for (const BlockDevice& block : objects_.blocks) {
      if (drivePathOf(block) == drive.path) {
        blocks.push_back(&block);
      }
    }
    return blocks;
  }

  /// Whether another drive of the same device is in use.
  bool hasSiblingInUse(const Drive& drive) const {
    return std::any_of(objects_.drives.begin(), objects_.drives.end(), [&](const Drive& other) {
      return areSiblings(drive, other) && isInUse(other);
    });
  }

private:
  template <typename Record, typename Condition>
  static const Record* findIf(const std::vector<Record>& records, const Condition& condition) {
    const auto found = std::find_if(records.begin(), records.end(), condition);
    return found == records.end() ? nullptr : &*found;
  }

  template <typename Record>
  static const Record* byPath(const std::vector<Record>& records, const QString& path) {
    return findIf(records, [&](const Record& record) { return record.path == path; });
  }

  static bool areSiblings(const Drive& drive, const Drive& other) {
    return !drive.siblingId.isEmpty() && drive.siblingId == other.siblingId &&
           drive.path != other.path;
  }

  bool isInUse(const Drive& drive) const {
    const std::vector<const BlockDevice*> blocks = blocksOf(drive);
    return std::any_of(blocks.begin(), blocks.end(), [](const BlockDevice* block) {
      return !block->mountPoints.empty() || !block->encryptedDevice.isEmpty();
    });
  }

  const DiskObjects& objects_;
};

bool holdsRunningSystem(const std::vector<const BlockDevice*>& blocks) {
  return std::any_of(blocks.begin(), blocks.end(), [](const BlockDevice* block) {
    return block->mountPoints.contains(QByteArrayLiteral("/"));
  });
}

void addUnmounting(const BlockDevice& block, std::vector<DiskCall>& calls) {
  const auto count = static_cast<std::size_t>(block.mountPoints.size()); // each call undoes one
  calls.insert(calls.end(), count, {block.path, DiskService::fileSystem, "Unmount"});
}

/// Inner encrypted devices are locked before outer ones.
void addLocking(std::vector<const BlockDevice*> blocks, const DiskTopology& topology,
                std::vector<DiskCall>& calls) {
  std::stable_sort(blocks.begin(), blocks.end(), [&](const auto* first, const auto* second) {
    return topology.encryptedDevicesBelow(*first).size() >
           topology.encryptedDevicesBelow(*second).size();
  });
  for (const BlockDevice* block : blocks) {
    if (!block->encryptedDevice.isEmpty()) {
      calls.push_back({block->encryptedDevice, DiskService::encrypted, "Lock"});
    }
  }
}

/// The call that makes an unused drive safe to unplug; absent if none is needed.
std::optional<DiskCall> callToRelease(const Drive& drive, bool isSiblingInUse) {
  if (drive.hasOpticalDisc) {
    return DiskCall{drive.path, DiskService::drive, "Eject"};
  }
  if (drive.canPowerOff && !isSiblingInUse) {
    return DiskCall{drive.path, DiskService::drive, "PowerOff"};
  }
  if (drive.canEject) {
    return DiskCall{drive.path, DiskService::drive, "Eject"};
  }
  return std::nullopt;
}

EjectPlan makeDriveEjectPlan(const Drive& drive, const BlockDevice& askedBlock,
                             const DiskTopology& topology) {
  std::vector<const BlockDevice*> blocks = topology.blocksOf(drive);
  if (holdsRunningSystem(blocks)) {
    return {.refusal = EjectRefusal::runningSystem};
  }
  std::stable_partition(blocks.begin(), blocks.end(),
                        [&](const BlockDevice* block) { return block == &askedBlock; });
  std::vector<DiskCall> calls;
  for (const BlockDevice* block : blocks) {
    addUnmounting(*block, calls);
  }
  addLocking(std::move(blocks), topology, calls);
  if (const auto release = callToRelease(drive, topology.hasSiblingInUse(drive))) {
    calls.push_back(*release);
  }
  return {.calls = std::move(calls)};
}

} // namespace

EjectPlan makeEjectPlan(const DiskObjects& objects, const EjectRequest& request) {
  const DiskTopology topology(objects);
  const std::vector<const BlockDevice*> blocks = topology.blocksWith(request);
  if (blocks.empty()) {
    return {.refusal = EjectRefusal::volumeChanged};
  }
  if (!topology.areOnOneDrive(blocks)) {
    return {.refusal = EjectRefusal::severalDrives};
  }
  const BlockDevice& askedBlock = *blocks.front();
  const QString drivePath = topology.drivePathOf(askedBlock);
  if (drivePath.isEmpty()) {
    EjectPlan plan;
    addUnmounting(askedBlock, plan.calls);
    return plan;
  }
  const Drive* drive = topology.drive(drivePath);
  if (drive == nullptr) { // unplugged while the service listed it
    return {};
  }
  return makeDriveEjectPlan(*drive, askedBlock, topology);
}

} // namespace tamberline
