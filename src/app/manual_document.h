#pragma once

#include <QLatin1String>
#include <QPdfDocument>
#include <QString>

#include <memory>

namespace tamberline {

/// Where the program carries its manuals, one for each language, on systems without bundles.
inline constexpr QLatin1String carriedManuals(":/manual");

/// The manual in the language of this run, or else the English one; null when neither opens and
/// has a page.
std::unique_ptr<QPdfDocument> loadDocument(const QString& folder);

} // namespace tamberline
