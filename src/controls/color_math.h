// Colours by how they are seen.
#pragma once

#include <QColor>

#include <vector>

namespace tamberline {

/// From 1 (the same) to 21 (black on white), as WCAG 2 defines it. Opaque colours.
double contrastRatio(const QColor& first, const QColor& second);

/// `share` of `over`, the rest of `under`.
QColor blended(const QColor& over, const QColor& under, double share);

/// The colour nearest to `color`, going towards black or white as the first background asks, with
/// at least `ratio` to every one of the backgrounds; black or white where there is none.
QColor readableOn(const std::vector<QColor>& backgrounds, const QColor& color, double ratio);

} // namespace tamberline
