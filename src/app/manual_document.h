#pragma once

#include <QPdfDocument>
#include <QString>

#include <memory>

namespace tamberline {

/// The folder with a program's manuals, one for each language: in the share folder beside its own,
/// or in the resources of its bundle. Empty if neither has a readable one. `programFolder` contains
/// its executable.
QString manualFolder(const QString& programFolder);

/// The manual in the language of this run, or else the English one; null if neither can be opened
/// and has a page, or if `folder` is empty.
std::unique_ptr<QPdfDocument> loadDocument(const QString& folder);

} // namespace tamberline
