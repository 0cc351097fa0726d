#pragma once

#include <QByteArrayList>
#include <QDBusMessage>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The names of UDisks2 and its interfaces on the system bus.
namespace tamberline::DiskService {

inline constexpr const char* name = "org.freedesktop.UDisks2";
inline constexpr const char* block = "org.freedesktop.UDisks2.Block";
inline constexpr const char* drive = "org.freedesktop.UDisks2.Drive";
inline constexpr const char* encrypted = "org.freedesktop.UDisks2.Encrypted";
inline constexpr const char* fileSystem = "org.freedesktop.UDisks2.Filesystem";

} // namespace tamberline::DiskService

namespace tamberline {

/// A disk, a partition, or the unlocked content of an encrypted one. Paths are those of the disk
/// service's objects; an empty path means that there is none.
struct BlockDevice {
  QString path;
  std::uint64_t deviceNumber = 0; // a dev_t
  QString drive;
  QString encryptedDevice;    // the one whose content this is
  QByteArrayList mountPoints; // in any encoding; also empty if there is no file system
};

/// A device that can be plugged in or that takes media.
struct Drive {
  QString path;
  bool hasOpticalDisc = false;
  bool canPowerOff = false;
  bool canEject = false;
  QString siblingId; // the same for all drives of one device; empty if it has only this one
};

struct DiskObjects {
  std::vector<BlockDevice> blocks;
  std::vector<Drive> drives;
};

/// The call that asks the disk service for its objects.
QDBusMessage askForDiskObjects();

/// Decodes the answer of the disk service. Absent if the answer is not in the documented format,
/// because an incomplete list could make a drive look unused.
std::optional<DiskObjects> readDiskObjects(const QDBusMessage& answer);

} // namespace tamberline
