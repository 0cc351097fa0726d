#pragma once

#include "views/panel.h"

#include <string>

namespace tamberline {

/// The panel as text for people, everything expanded: an indented tree of cards and rows, with the
/// bars as short text bars.
std::string panelText(const Panel& panel, bool useColors);

} // namespace tamberline
