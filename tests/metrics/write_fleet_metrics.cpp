// write_fleet_metrics DIR COUNT: writes the metrics of COUNT random machines, one file for each.

#include "inspect/document.h"
#include "metrics/machine_metrics.h"
#include "random_machine.h"
#include "support/fake_machine.h"
#include "support/simulated_event_source.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <memory>
#include <utility>

namespace {

using namespace tamberline;

/// Does everything on this thread: a thread for each question of each machine would spend most of
/// the time waiting for a processor. Scans that succeed do nothing later.
class QueueOfOneThread final : public MainQueue {
public:
  bool isMainThread() const override { return true; }
  void post(Work work) override { posted_.push_back(std::move(work)); }
  WorkItem postLater(std::chrono::milliseconds /*delay*/, Work /*work*/) override { return 1; }
  void cancel(WorkItem /*item*/) override {}
  void runInBackground(Work work, Work next) override {
    work();
    post(std::move(next));
  }

  void settle() {
    while (!posted_.empty()) {
      const Work work = std::move(posted_.front());
      posted_.pop_front();
      work();
    }
  }

private:
  std::deque<Work> posted_;
};

std::string metricsOf(const RandomMachine& machine) {
  const auto source = std::make_shared<FakeMachine>();
  for (const auto& [question, answer] : machine.answers) {
    source->answer(question, answer);
  }
  const auto queue = std::make_shared<QueueOfOneThread>();
  const auto scanner = PortScanner::create({.acquisition = {.machine = source, .queue = queue},
                                            .events = std::make_shared<SimulatedEventSource>()});
  scanner->scan();
  queue->settle();
  if (scanner->isScanning.get() || scanner->errorMessage.get()) {
    std::fputs("write_fleet_metrics: a scan failed\n", stderr);
    std::exit(1);
  }
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
