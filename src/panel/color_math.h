// Colours by how they are seen.
#pragma once

#include <QColor>

namespace tamberline {

/// From 1 (the same) to 21 (black on white), as WCAG 2 defines it. Opaque colours.
double contrastRatio(const QColor& first, const QColor& second);

/// `share` of `over`, the rest of `under`.
QColor blended(const QColor& over, const QColor& under, double share);

/// The colour nearest to `color`, going towards black or white, with at least `ratio` to
/// `background`.
QColor readableOn(const QColor& background, const QColor& color, double ratio);

} // namespace tamberline
