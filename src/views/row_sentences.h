#pragma once

#include "views/panel_rows.h"

#include <string>

namespace tamberline {

/// Everything a row shows as one sentence, for screen readers: the name first, then
/// speed against maximum and why it is slow, power, volumes, and whether the row is open.
std::string rowSentence(const PanelRow& row);

} // namespace tamberline
