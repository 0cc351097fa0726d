#include "platform/linux/udisks/disk_objects.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>

namespace tamberline {
namespace {

using Interfaces = QMap<QString, QVariantMap>;
using Objects = QMap<QDBusObjectPath, Interfaces>;

/// Reads the properties of one interface and records whether all of them were present and of the
/// documented type.
class Properties {
public:
  explicit Properties(const QVariantMap& values) : values_(values) {}

  bool areComplete() const { return areComplete_; }

  bool flag(const char* name) { return read<bool>(name); }
  QString text(const char* name) { return read<QString>(name); }
  std::uint64_t number(const char* name) { return read<qulonglong>(name); }

  /// Empty for the path "/", which stands for no object.
  QString object(const char* name) {
    const QString path = read<QDBusObjectPath>(name).path();
    return path == QLatin1String("/") ? QString() : path;
  }

  QByteArrayList byteTexts(const char* name) {
    const auto argument = read<QDBusArgument>(name);
    if (!areComplete_ || argument.currentSignature() != QLatin1String("aay")) {
      areComplete_ = false;
      return {};
    }
    auto texts = qdbus_cast<QByteArrayList>(argument);
    for (QByteArray& text : texts) {
      withoutFinalNul(text);
    }
    return texts;
  }

private:
  template <typename Value>
  Value read(const char* name) {
    const QVariant value = values_.value(QLatin1String(name));
    if (value.metaType() != QMetaType::fromType<Value>()) {
      areComplete_ = false;
      return {};
    }
    return value.value<Value>();
  }

  static void withoutFinalNul(QByteArray& text) {
    if (text.endsWith('\0')) {
      text.chop(1);
    }
  }

  const QVariantMap& values_;
  bool areComplete_ = true;
};

std::optional<Drive> readDrive(const QString& path, const QVariantMap& values) {
  Properties properties(values);
  Drive drive = {.path = path,
                 .hasOpticalDisc = properties.flag("Optical"),
                 .canPowerOff = properties.flag("CanPowerOff"),
                 .canEject = properties.flag("Ejectable"),
                 .siblingId = properties.text("SiblingId")};
  return properties.areComplete() ? std::optional(drive) : std::nullopt;
}

std::optional<QByteArrayList> readMountPoints(const Interfaces& interfaces) {
  const auto fileSystem = interfaces.constFind(QLatin1String(DiskService::fileSystem));
  if (fileSystem == interfaces.constEnd()) {
    return QByteArrayList();
  }
  Properties properties(*fileSystem);
  const QByteArrayList mountPoints = properties.byteTexts("MountPoints");
  return properties.areComplete() ? std::optional(mountPoints) : std::nullopt;
}

std::optional<BlockDevice> readBlock(const QString& path, const Interfaces& interfaces) {
  Properties properties(*interfaces.constFind(QLatin1String(DiskService::block)));
  const std::optional<QByteArrayList> mountPoints = readMountPoints(interfaces);
  BlockDevice block = {.path = path,
                       .deviceNumber = properties.number("DeviceNumber"),
                       .drive = properties.object("Drive"),
                       .encryptedDevice = properties.object("CryptoBackingDevice"),
                       .mountPoints = mountPoints.value_or(QByteArrayList())};
  return properties.areComplete() && mountPoints ? std::optional(block) : std::nullopt;
}

/// Appends a record to a list; false if there is none.
template <typename Record>
bool take(std::optional<Record> record, std::vector<Record>& records) {
  if (!record) {
    return false;
  }
  records.push_back(std::move(*record));
  return true;
}

/// False if a block device or drive does not have the documented properties.
bool readObject(const QString& path, const Interfaces& interfaces, DiskObjects& objects) {
  if (interfaces.contains(QLatin1String(DiskService::block))) {
    return take(readBlock(path, interfaces), objects.blocks);
  }
  const auto drive = interfaces.constFind(QLatin1String(DiskService::drive));
  return drive == interfaces.constEnd() || take(readDrive(path, *drive), objects.drives);
}

} // namespace

QDBusMessage askForDiskObjects() {
  return QDBusMessage::createMethodCall(
      QLatin1String(DiskService::name), QStringLiteral("/org/freedesktop/UDisks2"),
      QStringLiteral("org.freedesktop.DBus.ObjectManager"), QStringLiteral("GetManagedObjects"));
}

std::optional<DiskObjects> readDiskObjects(const QDBusMessage& answer) {
  if (answer.signature() != QLatin1String("a{oa{sa{sv}}}")) {
    return std::nullopt;
  }
  const auto listed = qdbus_cast<Objects>(answer.arguments().constFirst());
  DiskObjects objects;
  for (auto object = listed.constBegin(); object != listed.constEnd(); ++object) {
    if (!readObject(object.key().path(), object.value(), objects)) {
      return std::nullopt;
    }
  }
  return objects;
}

} // namespace tamberline
