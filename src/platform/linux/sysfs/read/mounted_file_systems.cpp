#include "platform/linux/sysfs/read/mounted_file_systems.h"

#include "base/text.h"
#include "platform/linux/sysfs/read/plain_text.h"

#include <algorithm>
#include <cstddef>

namespace tamberline::sysfs {

/// A line has the fields: number, parent, device, root, mount point, options, any number of others,
/// "-", type, source, options.
std::vector<MountedFileSystem> mountedFileSystemsIn(std::string_view mountTable) {
  constexpr std::size_t deviceField = 2;
  constexpr std::size_t rootField = 3;
  constexpr std::size_t mountPointField = 4;
  constexpr std::size_t firstOptionalField = 6;
  constexpr std::ptrdiff_t typeAfterSeparator = 1;
  constexpr std::ptrdiff_t sourceAfterSeparator = 2;
  std::vector<MountedFileSystem> mounts;
  for (const std::string_view line : splitNonEmpty(mountTable, '\n')) {
    const std::vector<std::string_view> fields = split(line, ' ');
    if (fields.size() <= firstOptionalField) {
      continue;
    }
    const auto separator = std::find(fields.begin() + firstOptionalField, fields.end(), "-");
    if (fields.end() - separator > sourceAfterSeparator) {
      mounts.push_back({.deviceNumber = std::string(fields[deviceField]),
                        .root = withoutOctalEscapes(fields[rootField]),
                        .mountPoint = withoutOctalEscapes(fields[mountPointField]),
                        .type = withoutOctalEscapes(separator[typeAfterSeparator]),
                        .source = withoutOctalEscapes(separator[sourceAfterSeparator])});
    }
  }
  return mounts;
}

bool isOn(const MountedFileSystem& mount, const BlockDeviceNames& device) {
  // These file systems may be on several devices and have a number that is not that of a device.
  // Only root can mount them, so their source can be trusted.
  const bool isSourceTrue = mount.type == "btrfs" || mount.type == "bcachefs";
  return (!device.number.empty() && mount.deviceNumber == device.number) ||
         (isSourceTrue && mount.source == "/dev/" + device.kernelName) ||
         (isSourceTrue && !device.mappedName.empty() &&
          mount.source == "/dev/mapper/" + device.mappedName);
}

} // namespace tamberline::sysfs
