// Calculations with colours as people perceive them.
#pragma once

#include <QColor>

#include <vector>

namespace tamberline {

/// From 1 (the same) to 21 (black on white), as WCAG 2 defines it. Opaque colours.
double contrastRatio(const QColor& first, const QColor& second);

/// A mixture: `share` (0 to 1) of `over`, the rest of `under`.
QColor blended(const QColor& over, const QColor& under, double share);

/// `color`, made darker if the first background is light, otherwise lighter, just until its
/// contrast with every background is at least `ratio`. Black or white if that is not enough.
QColor readableOn(const std::vector<QColor>& backgrounds, const QColor& color, double ratio);

} // namespace tamberline
