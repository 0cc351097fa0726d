#include "reports/container_hubs.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

namespace tamberline {
namespace {

using Devices = std::vector<const USBDevice*>;

/// Twice as deep as a report may nest devices.
constexpr std::size_t maxPathLength = 512;

/// The devices of one container identifier, in bus order and then depth-first.
struct Group {
  Devices instances;
  const USBDevice* keeper = nullptr;
};

Devices pointersTo(const SharedList<USBDevice>& devices) {
  Devices pointers;
  std::transform(devices.begin(), devices.end(), std::back_inserter(pointers),
                 [](const USBDevice& device) { return &device; });
  return pointers;
}

const USBDevice* fastest(const Devices& instances) {
  return *std::max_element(instances.begin(), instances.end(),
                           [](const USBDevice* left, const USBDevice* right) {
                             return left->speedGbps() < right->speedGbps();
                           });
}

/// The groups of a report that are merged, and where each device is.
class Merge {
public:
  explicit Merge(const std::vector<USBBus>& buses) {
    for (const USBBus& bus : buses) {
      collect(bus.devices, nullptr);
    }
    for (auto& [identifier, group] : groups_) {
      group.keeper = fastest(group.instances);
      if (group.instances.size() >= 2) {
        setMerged(group, true);
      }
    }
    excludeAllIfNestedTooDeeply();
    excludeCycles();
    excludeAllIfNestedTooDeeply(); // separating groups changes the paths of others
  }

  bool changesNothing() const { return mergedGroupOf_.empty(); }

  std::vector<USBDevice> rebuild(const Devices& devices) const {
    std::vector<USBDevice> rebuilt;
    for (const USBDevice* device : devices) {
      const Group* group = mergedGroupOf(device);
      if (group == nullptr) {
        rebuilt.push_back(device->children.empty()
                              ? *device
                              : device->replacingChildren(rebuild(pointersTo(device->children))));
      } else if (group->keeper == device) {
        rebuilt.push_back(device->replacingChildren(rebuild(childrenOfAll(group->instances))));
      }
    }
    return rebuilt;
  }

private:
  void collect(const SharedList<USBDevice>& devices, const USBDevice* parent) {
    for (const USBDevice& device : devices) {
      parentOf_[&device] = parent;
      if (device.containerID && !device.containerID->empty()) {
        groups_[*device.containerID].instances.push_back(&device);
      }
      collect(device.children, &device);
    }
  }

  void setMerged(const Group& group, bool isMerged) {
    for (const USBDevice* instance : group.instances) {
      if (isMerged) {
        mergedGroupOf_[instance] = &group;
      } else {
        mergedGroupOf_.erase(instance);
      }
    }
  }

  const Group* mergedGroupOf(const USBDevice* device) const {
    const auto found = mergedGroupOf_.find(device);
    return found == mergedGroupOf_.end() ? nullptr : found->second;
  }

  /// The group of an instance that is dropped because its children move to the keeper.
  const Group* groupOfDroppedInstance(const USBDevice* device) const {
    const Group* group = mergedGroupOf(device);
    return group == nullptr || group->keeper == device ? nullptr : group;
  }

  /// The path from a device upwards, continuing from each dropped instance at its keeper. At most
  /// `maxPathLength` + 1 steps.
  struct PathUp {
    Devices steps = {};
    const USBDevice* next = nullptr; // null at the top; one of the steps in a cycle
  };

  PathUp pathUpFrom(const USBDevice* device) const {
    PathUp way;
    std::set<const USBDevice*> visited;
    while (device != nullptr && way.steps.size() <= maxPathLength &&
           visited.insert(device).second) {
      way.steps.push_back(device);
      const Group* dropping = groupOfDroppedInstance(device);
      device = dropping == nullptr ? parentOf_.at(device) : dropping->keeper;
    }
    way.next = device;
    return way;
  }

  /// Hubs on many buses that absorb each other could nest as deep as there are hubs.
  void excludeAllIfNestedTooDeeply() {
    const bool nestTooDeep =
        std::any_of(mergedGroupOf_.begin(), mergedGroupOf_.end(), [this](const auto& entry) {
          const auto& [device, group] = entry;
          return group->keeper == device && pathUpFrom(device).steps.size() > maxPathLength;
        });
    if (nestTooDeep) {
      mergedGroupOf_.clear();
    }
  }

  void excludeCycles() {
    for (std::set<const Group*> looping = groupsInCycles(); !looping.empty();
         looping = groupsInCycles()) {
      for (const Group* group : looping) {
        setMerged(*group, false);
      }
    }
  }

  /// Groups that would end up below themselves: the path up from the keeper returns to one of its
  /// steps. Everything below them would be lost.
  std::set<const Group*> groupsInCycles() const {
    std::set<const Group*> looping;
    for (const auto& [device, group] : mergedGroupOf_) {
      if (group->keeper == device) {
        const std::set<const Group*> found = groupsInCycleAbove(device);
        looping.insert(found.begin(), found.end());
      }
    }
    return looping;
  }

  std::set<const Group*> groupsInCycleAbove(const USBDevice* device) const {
    const PathUp way = pathUpFrom(device);
    std::set<const Group*> groups;
    const auto loopStart = std::find(way.steps.begin(), way.steps.end(), way.next);
    for (auto step = loopStart; step != way.steps.end(); ++step) {
      if (const Group* dropping = groupOfDroppedInstance(*step)) {
        groups.insert(dropping);
      }
    }
    return groups;
  }

  static Devices childrenOfAll(const Devices& instances) {
    Devices children;
    for (const USBDevice* instance : instances) {
      const Devices own = pointersTo(instance->children);
      children.insert(children.end(), own.begin(), own.end());
    }
    return children;
  }

  std::unordered_map<const USBDevice*, const USBDevice*> parentOf_;
  std::map<std::string, Group> groups_;
  std::unordered_map<const USBDevice*, const Group*> mergedGroupOf_;
};

} // namespace

std::vector<USBBus> mergeContainerHubs(const std::vector<USBBus>& buses) {
  const Merge merge(buses);
  if (merge.changesNothing()) {
    return buses;
  }
  std::vector<USBBus> merged;
  for (const USBBus& bus : buses) {
    USBBus rebuilt = bus;
    rebuilt.devices = merge.rebuild(pointersTo(bus.devices));
    const bool becameEmpty = rebuilt.devices.empty() && !bus.devices.empty();
    if (!becameEmpty || bus.isInternalTBController()) {
      merged.push_back(std::move(rebuilt));
    }
  }
  return merged;
}

} // namespace tamberline
