#pragma once

#include <QQuickWindow>

#include <string>
#include <vector>

namespace tamberline {

/// What is wrong with the texts that are seen, one line for each fault: cut without a tooltip that
/// holds the whole text, taller or wider than its item, beyond what it stands on, over another text
/// or a symbol, or read as anything but plain text.
std::vector<std::string> layoutFaults(QQuickWindow& window);

} // namespace tamberline
