#pragma once

#include "scanner/port_scanner.h"
#include "views/panel.h"

namespace tamberline {

/// The part of the scanner's current state that the panel's list shows.
PanelInputs panelInputs(const PortScanner& scanner);

} // namespace tamberline
