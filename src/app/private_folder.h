#pragma once

#include <QString>

namespace tamberline {

/// Where a program keeps the traces of its run: the runtime folder of the system or, without one,
/// `privateFolderIn` the folder for temporary files. Empty when neither can be had.
QString runtimeFolder();

/// A folder for this person alone, made when it is missing; empty when it cannot be had or somebody
/// else made it.
QString privateFolderIn(const QString& parent);

} // namespace tamberline
