#pragma once

#include "scanner/port_event_source.h"

#include <QDateTime>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QString>

#include <filesystem>
#include <optional>
#include <vector>

namespace tamberline {

/// Replaces the system's events if reports come from a folder (docs/report-folder.md). A file in
/// the folder that changes, appears or disappears counts as something attached or removed, and so
/// does the folder itself appearing or disappearing. Needs an event loop.
class FolderEventSource final : public PortEventSource {
public:
  /// The folder may be missing.
  explicit FolderEventSource(const std::filesystem::path& folder);

  void start(PortEvents events) override;
  void stop() override;
  bool isOnExternalPower() const override { return true; }

private:
  struct FileState {
    QString name;
    qint64 size = 0;
    QDateTime changed; // also differs if the file replaces another one

    bool operator==(const FileState&) const = default;
  };
  /// The folder itself and its files; absent while the folder is missing.
  using FolderState = std::optional<std::vector<FileState>>;

  static FileState stateOf(const QFileInfo& file);

  void watchAnew();
  void unwatch();
  FolderState readFolder() const;
  void handleChange(const QString& path);

  QString folder_;
  PortEvents events_;
  QFileSystemWatcher watcher_;
  FolderState lastState_;
};

} // namespace tamberline
