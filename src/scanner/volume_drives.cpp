#include "scanner/volume_drives.h"

#include <variant>

namespace tamberline {
namespace {

std::set<std::string> mountPointsOf(const USBDevice& device) {
  std::set<std::string> mountPoints;
  for (const USBVolume& volume : device.volumes) {
    mountPoints.insert(volume.mountPoint);
  }
  return mountPoints;
}

template <typename Visitor>
void visitMountPointsOfDevices(const std::vector<TreeNode>& nodes, const Visitor& visit) {
  for (const TreeNode& node : nodes) {
    if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
      visit(mountPointsOf(entry->device));
    }
    visitMountPointsOfDevices(node.children, visit);
  }
}

} // namespace

std::set<std::string> mountPointsIn(const std::vector<TreeNode>& tree) {
  std::set<std::string> all;
  visitMountPointsOfDevices(tree, [&](std::set<std::string> own) { all.merge(own); });
  return all;
}

std::set<std::string> mountPointsOfDrive(const std::vector<TreeNode>& tree,
                                         const std::string& mountPoint) {
  std::set<std::string> ofDrive = {mountPoint};
  visitMountPointsOfDevices(tree, [&](std::set<std::string> own) {
    if (own.contains(mountPoint)) {
      ofDrive.merge(own);
    }
  });
  return ofDrive;
}

} // namespace tamberline
