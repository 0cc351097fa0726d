#pragma once

#include <QByteArrayList>
#include <QDBusMessage>
#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The names by which UDisks2 and the interfaces of its objects go on the system bus.
namespace tamberline::DiskService {

inline constexpr const char* name = "org.freedesktop.UDisks2";
inline constexpr const char* block = "org.freedesktop.UDisks2.Block";
inline constexpr const char* drive = "org.freedesktop.UDisks2.Drive";
inline constexpr const char* encrypted = "org.freedesktop.UDisks2.Encrypted";
inline constexpr const char* fileSystem = "org.freedesktop.UDisks2.Filesystem";

} // namespace tamberline::DiskService

namespace tamberline {

/// A disk, a partition, or what an unlocked encrypted one shows. Paths are those of the disk
/// service's objects; an empty one means that there is none.
struct BlockDevice {
  QString path;
  std::uint64_t deviceNumber = 0; // a dev_t
  QString drive;
  QString encryptedDevice;    // the one that this shows the content of
  QByteArrayList mountPoints; // bytes of any encoding; empty also when it holds no file system
};

/// Something that can be plugged in or takes media.
struct Drive {
  QString path;
  bool hasOpticalDisc = false;
  bool canPowerOff = false;
  bool canEject = false;
  QString siblingId; // the same for all drives of one device; empty when it has only this one
};

struct DiskObjects {
  std::vector<BlockDevice> blocks;
  std::vector<Drive> drives;
};

/// The call that asks the disk service for its objects.
QDBusMessage askForDiskObjects();

/// What the service answered; absent when that is not what the service promises, since half a list
/// could make a drive look unused.
std::optional<DiskObjects> readDiskObjects(const QDBusMessage& answer);

} // namespace tamberline
