// write_fleet_metrics DIR COUNT: writes the metrics of COUNT random machines, one file for each.

#include "inspect/document.h"
#include "metrics/machine_metrics.h"
#include "random_machine.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

namespace {

using namespace tamberline;

std::string metricsOf(const RandomMachine& machine) {
  const auto source = std::make_shared<FakeMachine>();
  for (const auto& [question, answer] : machine.answers) {
    source->answer(question, answer);
  }
  const auto queue = std::make_shared<HandDrivenQueue>();
  const auto scanner = PortScanner::create({.acquisition = {.machine = source, .queue = queue},
                                            .events = std::make_shared<SimulatedEventSource>()});
  scanner->scan();
  queue->settle();
  return openMetricsText(machineMetrics(inspectionDocument(*scanner)));
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: write_fleet_metrics DIR COUNT\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  std::filesystem::create_directories(folder);
  const auto count = static_cast<std::uint32_t>(std::strtoul(argv[2], nullptr, 10));
  for (std::uint32_t seed = 0; seed < count; ++seed) {
    std::ofstream file(folder / std::to_string(seed), std::ios::binary);
    file << metricsOf(makeRandomMachine(seed));
    if (!file.flush()) {
      std::fputs("write_fleet_metrics: cannot write\n", stderr);
      return 1;
    }
  }
  return 0;
}
