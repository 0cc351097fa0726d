#pragma once

#include "scanner/port_scanner.h"
#include "views/panel.h"

namespace tamberline {

/// What the panel's list shows of the scanner's state right now.
PanelInputs panelInputs(const PortScanner& scanner);

} // namespace tamberline
