#pragma once

#include <QQuickWindow>

#include <string>
#include <vector>

namespace tamberline {

/// The faults of the visible texts, one per line: cut off without a tooltip that has the whole
/// text, taller or wider than the item, outside the background, overlapping another text or a
/// symbol, or not plain text.
std::vector<std::string> layoutFaults(QQuickWindow& window);

} // namespace tamberline
