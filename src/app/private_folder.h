#pragma once

#include <QString>

namespace tamberline {

/// The folder for a program's temporary run files: the one that the system provides or, if that is
/// empty, `privateFolderIn` the folder for temporary files. Empty if that is unavailable.
QString runtimeFolder(const QString& systemFolder);

/// A folder that only this user can access, created if missing; empty if that fails or another user
/// created it.
QString privateFolderIn(const QString& parent);

} // namespace tamberline
