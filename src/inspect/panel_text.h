#pragma once

#include "views/panel.h"

#include <optional>
#include <string>

namespace tamberline {

/// The panel as text, everything expanded: an indented tree of cards and rows, with short text
/// bars; `columns` as for `renderTextTrees`.
std::string panelText(const Panel& panel, bool useColors,
                      std::optional<int> columns = std::nullopt);

} // namespace tamberline
