#include "views/panel_inputs.h"

namespace tamberline {

PanelInputs panelInputs(const PortScanner& scanner) {
  return PanelInputs{
      .portTree = scanner.portTree.get(),
      .portFacts = {.hpmPorts = scanner.hpmPorts.get(),
                    .portPowerOut = scanner.portPowerOut.get(),
                    .portCurrentLimitMa = scanner.portCurrentLimitMa.get(),
                    .charging = scanner.charging.get()},
      .isScanning = scanner.isScanning.get(),
      .errorMessage = scanner.errorMessage.get(),
  };
}

} // namespace tamberline
