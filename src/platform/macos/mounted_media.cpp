#include "platform/macos/mounted_media.h"

#include "base/text.h"
#include "base/utf8.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tamberline {
namespace {

/// The registry may write a 32-bit location as a negative number.
std::int64_t unsignedLocation(std::int64_t locationID) {
  constexpr std::int64_t twoToThePower32 = std::int64_t{1} << 32U;
  return locationID < 0 ? locationID + twoToThePower32 : locationID;
}

/// The volume's name according to its mount point. Paths have ":" where the name has "/".
std::string nameAt(std::string_view mountPoint) {
  return replacedAll(mountPoint.substr(mountPoint.find_last_of('/') + 1), ":", "/");
}

/// The medium of a file system, such as "disk4s1"; empty if it has none. The source is
/// "/dev/disk4s1" if the system itself mounts the file system, or a text such as
/// "msdos://disk4s1/NO%20NAME" if a user-space driver does.
std::string_view mediumOf(std::string_view device) {
  constexpr std::string_view folderOfDevices = "/dev/";
  if (device.starts_with(folderOfDevices)) {
    return device.substr(folderOfDevices.size());
  }
  for (const std::string_view scheme : {"msdos://", "exfat://"}) {
    if (device.starts_with(scheme)) {
      const std::string_view rest = device.substr(scheme.size());
      return rest.substr(0, rest.find('/'));
    }
  }
  return {};
}

class Join {
public:
  explicit Join(const std::vector<Mount>& mounts) {
    for (const Mount& mount : mounts) {
      const std::string_view medium = mediumOf(mount.device);
      if (!medium.empty() && isValidUtf8(mount.mountPoint)) {
        mountPointsByMedium_.emplace(medium, mount.mountPoint);
      }
    }
  }

  /// `location` is that of the nearest USB device above; absent if there is none.
  void walk(PropertyListValue value, std::optional<std::int64_t> location) {
    PropertyListValue nested = value;
    if (value.isDictionary()) {
      location = locationBelow(value, location);
      addVolumesOf(value, location);
      nested = value.member("IORegistryEntryChildren");
    }
    for (const PropertyListValue element : nested.elements()) {
      walk(element, location);
    }
  }

  VolumesByLocation takeVolumes() { return std::move(volumes_); }

private:
  /// The location for the entries below `entry`. A device's interfaces and drivers repeat its
  /// location. Below a device without a location there is none, so that its media are not
  /// attributed to the hub above it.
  static std::optional<std::int64_t> locationBelow(PropertyListValue entry,
                                                   std::optional<std::int64_t> locationAbove) {
    if (const auto locationID = entry.member("locationID").integer()) {
      return unsignedLocation(*locationID);
    }
    const bool isDevice = entry.member("IOObjectClass").text() == "IOUSBHostDevice";
    return isDevice ? std::nullopt : locationAbove;
  }

  void addVolumesOf(PropertyListValue entry, std::optional<std::int64_t> location) {
    const std::optional<std::string> medium = entry.member("BSD Name").text();
    if (!location || !medium || !seenMedia_.insert(*medium).second) {
      return;
    }
    const auto [first, last] = mountPointsByMedium_.equal_range(*medium);
    for (auto mounted = first; mounted != last; ++mounted) {
      const std::string& mountPoint = mounted->second;
      // Only volumes that share a container with others have a name in the registry.
      const std::string name = entry.member("FullName").text().value_or("");
      volumes_[*location].push_back({name.empty() ? nameAt(mountPoint) : name, mountPoint});
    }
  }

  std::multimap<std::string, std::string, std::less<>> mountPointsByMedium_;
  std::unordered_set<std::string> seenMedia_;
  VolumesByLocation volumes_;
};

} // namespace

VolumesByLocation mountedVolumesIn(const PropertyList& dump, const std::vector<Mount>& mounts) {
  Join join(mounts);
  join.walk(dump.root(), std::nullopt);
  return join.takeVolumes();
}

} // namespace tamberline
