#pragma once

#include "support/temporary_folder.h"

#include <QByteArray>
#include <QtGlobal>

namespace tamberline {

/// Hides all icon themes from the desktop's data folders during its lifetime.
class WithoutIconTheme {
public:
#ifdef Q_OS_MACOS
  static constexpr bool hidesSymbols = false; // the system draws them
#else
  static constexpr bool hidesSymbols = true;
#endif

  WithoutIconTheme() {
    qputenv(folders, folder_.path().c_str());
    qputenv(ownFolder, folder_.path().c_str());
  }
  WithoutIconTheme(const WithoutIconTheme&) = delete;
  WithoutIconTheme& operator=(const WithoutIconTheme&) = delete;
  ~WithoutIconTheme() {
    restore(folders, foldersBefore_);
    restore(ownFolder, ownFolderBefore_);
  }

private:
  static constexpr const char* folders = "XDG_DATA_DIRS";
  static constexpr const char* ownFolder = "XDG_DATA_HOME";

  static void restore(const char* variable, const QByteArray& value) {
    if (value.isNull()) {
      qunsetenv(variable);
    } else {
      qputenv(variable, value);
    }
  }

  TemporaryFolder folder_;
  QByteArray foldersBefore_ = qgetenv(folders);
  QByteArray ownFolderBefore_ = qgetenv(ownFolder);
};

} // namespace tamberline
