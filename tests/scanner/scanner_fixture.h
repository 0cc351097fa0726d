#pragma once

#include "scanner/port_scanner.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>

namespace tamberline {

/// A scanner whose machine, clock and events are in the test's hands; every section is empty at
/// first.
class ScannerFixture : public testing::Test {
protected:
  ScannerFixture() { answerWithEmptyReports(*machine); }

  void SetUp() override { scanner = makeScanner(); }

  /// Destroys everything that is still waiting in the queue.
  void TearDown() override { queue->end(); }

  std::shared_ptr<PortScanner> makeScanner() {
    return PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                                .events = events,
                                .now = [this] { return now; }});
  }

  /// Runs a whole scan.
  void scan() {
    scanner->scan();
    queue->advance(std::chrono::milliseconds(150));
  }

  void answerWithOnePort(const std::string& busName = "thunderbolt_bus_0") {
    machine->answer(Question::thunderbolt,
                    R"({"SPThunderboltDataType": [{"_name": ")" + busName + R"("}]})");
  }

  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<SimulatedEventSource> events = std::make_shared<SimulatedEventSource>();
  std::chrono::system_clock::time_point now{std::chrono::seconds(1'000'000)};
  std::shared_ptr<PortScanner> scanner;
};

} // namespace tamberline
