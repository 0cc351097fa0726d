#include "platform/saved/folder_event_source.h"

#include <QDir>
#include <QObject>
#include <QStringList>

#include <utility>

namespace tamberline {
namespace {

/// The nearest existing folder above. Watching it shows when `folder` is created, removed or
/// replaced.
QString existingFolderAbove(const QString& folder) {
  QString above = QFileInfo(folder).path();
  while (!QFileInfo(above).isDir() && QFileInfo(above).path() != above) {
    above = QFileInfo(above).path();
  }
  return above;
}

/// Without links: nobody reads what they lead to, so its changes are of no interest.
QFileInfoList filesIn(const QString& folder) {
  return QDir(folder).entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDir::Name);
}

} // namespace

FolderEventSource::FolderEventSource(const std::filesystem::path& folder)
    : folder_(QDir::cleanPath(QFileInfo(QFile::decodeName(folder.c_str())).absoluteFilePath())) {
  const auto handle = [this](const QString& path) { handleChange(path); };
  QObject::connect(&watcher_, &QFileSystemWatcher::fileChanged, &watcher_, handle);
  QObject::connect(&watcher_, &QFileSystemWatcher::directoryChanged, &watcher_, handle);
}

void FolderEventSource::start(PortEvents events) {
  events_ = std::move(events);
  watchAnew();
  lastState_ = readFolder();
}

void FolderEventSource::stop() {
  events_ = {};
  unwatch();
}

/// A watch stays with the file or folder that its path named when it was added, so a replaced one
/// needs a new watch. Each folder is watched before it is listed, so that no file created in
/// between is missed.
void FolderEventSource::watchAnew() {
  unwatch();
  QString above;
  do {
    above = existingFolderAbove(folder_);
    watcher_.addPath(above);
  } while (above != existingFolderAbove(folder_));
  if (!QFileInfo(folder_).isDir()) {
    return;
  }
  watcher_.addPath(folder_);
  for (const QFileInfo& file : filesIn(folder_)) {
    watcher_.addPath(file.filePath());
  }
}

void FolderEventSource::unwatch() {
  const QStringList paths = watcher_.files() + watcher_.directories();
  if (!paths.isEmpty()) {
    watcher_.removePaths(paths);
  }
}

FolderEventSource::FolderState FolderEventSource::readFolder() const {
  if (!QFileInfo(folder_).isDir()) {
    return std::nullopt;
  }
  std::vector<FileState> states{stateOf(QFileInfo(folder_))};
  for (const QFileInfo& file : filesIn(folder_)) {
    states.push_back(stateOf(file));
  }
  return states;
}

FolderEventSource::FileState FolderEventSource::stateOf(const QFileInfo& file) {
  return {file.fileName(), file.size(), file.fileTime(QFile::FileMetadataChangeTime)};
}

/// A change above the folder counts only if the folder's state has changed, because it may concern
/// a file beside the folder. Watches are renewed only when needed, because renewing them loses
/// pending events.
void FolderEventSource::handleChange(const QString& path) {
  if (!events_.registryChanged) {
    return;
  }
  const bool isInFolder = path == folder_ || path.startsWith(folder_ + QLatin1Char('/'));
  if (!isInFolder && lastState_ && readFolder() == lastState_) {
    return;
  }
  watchAnew();
  const FolderState before = std::exchange(lastState_, readFolder());
  if (isInFolder || lastState_ != before) {
    const auto tell = events_.registryChanged; // a copy: the call may stop the source
    tell();
  }
}

} // namespace tamberline
