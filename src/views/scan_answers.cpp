#include "views/scan_answers.h"

#include "answers/find_answers.h"

namespace tamberline {

std::vector<Answer> answersOf(const PortScanner& scanner) {
  const std::optional<ChargingState>& charging = scanner.charging.get();
  return findAnswers({
      .portTree = scanner.portTree.get(),
      .hpmPorts = scanner.hpmPorts.get(),
      .charging = charging ? &*charging : nullptr,
      .benchmarks = scanner.benchmarks.get(),
  });
}

} // namespace tamberline
