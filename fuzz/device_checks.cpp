#include "device_checks.h"

#include "fuzz_target.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>

namespace tamberline {
namespace {

/// The number of devices with each container identifier; "" stands for none.
using Counts = std::map<std::string, std::size_t>;

void count(const SharedList<USBDevice>& devices, Counts& counts) {
  for (const USBDevice& device : devices) {
    ++counts[device.containerID.value_or("")];
    count(device.children, counts);
  }
}

Counts countsOf(const std::vector<USBBus>& buses) {
  Counts counts;
  for (const USBBus& bus : buses) {
    count(bus.devices, counts);
  }
  return counts;
}

struct Identifiers {
  std::size_t nodeCount = 0;
  std::set<std::string> distinct;
  bool canSpellPaths = false;
};

void collect(const std::vector<TreeNode>& nodes, Identifiers& identifiers) {
  for (const TreeNode& node : nodes) {
    ++identifiers.nodeCount;
    identifiers.distinct.insert(node.id);
    identifiers.canSpellPaths =
        identifiers.canSpellPaths || node.localKey().find_first_of("/#") != std::string::npos;
    collect(node.children, identifiers);
  }
}

} // namespace

void requireNothingLost(const std::vector<USBBus>& buses, const std::vector<USBBus>& merged) {
  const Counts before = countsOf(buses);
  const Counts after = countsOf(merged);
  require(before.size() == after.size(), "merging hubs loses no box");
  for (const auto& [identifier, devices] : before) {
    const auto left = after.find(identifier);
    require(left != after.end(), "merging hubs loses no box");
    require(identifier.empty() ? left->second == devices : left->second <= devices,
            "merging hubs neither loses nor invents devices");
  }
}

void requireUniqueIdentifiers(const std::vector<TreeNode>& tree) {
  Identifiers identifiers;
  collect(tree, identifiers);
  require(identifiers.canSpellPaths || identifiers.distinct.size() == identifiers.nodeCount,
          "identifiers are unique");
}

} // namespace tamberline
