#include "platform/macos/mounted_media.h"

#include "base/text.h"
#include "base/utf8.h"

#include <cstddef>
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

/// Whether this is the name of a medium, such as "disk4" or "disk4s1", and not of a server.
bool isMediumName(std::string_view name) {
  constexpr std::string_view start = "disk";
  return name.starts_with(start) && name.size() > start.size() &&
         name.find_first_not_of("0123456789s", start.size()) == std::string_view::npos;
}

/// The medium of a file system; empty if it has none. The source is "/dev/disk4s1" if the system
/// itself mounts the file system. If a user-space driver does, it may also be an address that
/// starts with the name of the format: "msdos://disk4s1/NO%20NAME".
std::string_view mediumOf(std::string_view device) {
  constexpr std::string_view folderOfDevices = "/dev/";
  if (device.starts_with(folderOfDevices)) {
    return device.substr(folderOfDevices.size());
  }
  constexpr std::string_view separator = "://";
  const std::size_t end = device.find(separator);
  if (end == std::string_view::npos || device.substr(0, end).starts_with("http")) {
    return {}; // a folder of a web server
  }
  const std::string_view rest = device.substr(end + separator.size());
  const std::string_view medium = rest.substr(0, rest.find('/'));
  return isMediumName(medium) ? medium : std::string_view();
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
