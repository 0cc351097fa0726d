#pragma once

#include <QString>

namespace tamberline {

/// Where a program keeps the traces of its run: the folder that the system has for that or, when
/// that is empty, `privateFolderIn` the folder for temporary files. Empty when that cannot be had.
QString runtimeFolder(const QString& ofTheSystem);

/// A folder for this person alone, made when it is missing; empty when it cannot be had or somebody
/// else made it.
QString privateFolderIn(const QString& parent);

} // namespace tamberline
