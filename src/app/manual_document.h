#pragma once

#include <QPdfDocument>
#include <QString>

#include <memory>

namespace tamberline {

/// Where the manuals of a program are, one for each language: in the share folder beside its own,
/// or in the resources of its bundle. Empty when neither has one that could be taken.
/// `programFolder` is where its executable is.
QString manualFolder(const QString& programFolder);

/// The manual in the language of this run, or else the English one; null when neither opens and
/// has a page, or `folder` is empty.
std::unique_ptr<QPdfDocument> loadDocument(const QString& folder);

} // namespace tamberline
