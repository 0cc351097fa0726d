#include "app/private_folder.h"

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace tamberline {
namespace {

constexpr auto onlyForTheOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// The user of the process, not the owner of $HOME, which may be another user.
uint userIdentifier() {
  return geteuid();
}

} // namespace

QString runtimeFolder(const QString& systemFolder) {
  return systemFolder.isEmpty() ? privateFolderIn(QDir::tempPath()) : systemFolder;
}

QString privateFolderIn(const QString& parent) {
  const QString folder =
      QDir(parent).filePath(QStringLiteral("tamberline-%1").arg(userIdentifier()));
  QDir().mkdir(folder, onlyForTheOwner);
  const QFileInfo info(folder);
  const bool isOurs = info.isDir() && !info.isSymLink() && info.ownerId() == userIdentifier();
  return isOurs && QFile::setPermissions(folder, onlyForTheOwner) ? folder : QString();
}

} // namespace tamberline
