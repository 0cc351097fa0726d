#include "views/panel_inputs.h"

namespace tamberline {

PanelInputs panelInputs(const PortScanner& scanner) {
  return PanelInputs{
      .portTree = scanner.portTree.get(),
      .portFacts = {.hpmPorts = scanner.hpmPorts.get(),
                    .portPowerOut = scanner.portPowerOut.get(),
                    .portCurrentLimitMa = scanner.portCurrentLimitMa.get()},
      .isScanning = scanner.isScanning.get(),
      .errorMessage = scanner.errorMessage.get(),
  };
}

AnswerInputs answerInputs(const PortScanner& scanner) {
  const std::optional<ChargingState>& charging = scanner.charging.get();
  return AnswerInputs{
      .portTree = scanner.portTree.get(),
      .hpmPorts = scanner.hpmPorts.get(),
      .charging = charging ? &*charging : nullptr,
      .charger = scanner.charger.get(),
      .battery = scanner.battery.get(),
      .benchmarks = scanner.benchmarks.get(),
  };
}

} // namespace tamberline
