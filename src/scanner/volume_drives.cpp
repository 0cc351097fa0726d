#include "scanner/volume_drives.h"

namespace tamberline {
namespace {

template <typename Visitor>
void visitDevices(const SharedList<USBDevice>& devices, const Visitor& visit) {
  for (const USBDevice& device : devices) {
    visit(device);
    visitDevices(device.children, visit);
  }
}

std::set<std::string> mountPointsOf(const USBDevice& device) {
  std::set<std::string> mountPoints;
  for (const USBVolume& volume : device.volumes) {
    mountPoints.insert(volume.mountPoint);
  }
  return mountPoints;
}

} // namespace

std::set<std::string> mountPointsOn(const std::vector<USBBus>& buses) {
  std::set<std::string> mountPoints;
  for (const USBBus& bus : buses) {
    visitDevices(bus.devices,
                 [&](const USBDevice& device) { mountPoints.merge(mountPointsOf(device)); });
  }
  return mountPoints;
}

std::set<std::string> mountPointsOfDrive(const std::vector<USBBus>& buses,
                                         const std::string& mountPoint) {
  std::set<std::string> mountPoints = {mountPoint};
  for (const USBBus& bus : buses) {
    visitDevices(bus.devices, [&](const USBDevice& device) {
      if (std::set<std::string> own = mountPointsOf(device); own.contains(mountPoint)) {
        mountPoints.merge(own);
      }
    });
  }
  return mountPoints;
}

} // namespace tamberline
