// What a scan reads from a Linux machine and writes for its parsers. Run it on a recorded machine
// (umockdev-run) if this one has no devices.
#include "platform/this_machine.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace tamberline;

void answersOfOneScan(benchmark::State& state) {
  const std::vector<Question> questions = {Question::thunderbolt, Question::usb,
                                           Question::power,       Question::usbHostDevices,
                                           Question::powerSource, Question::portControllers,
                                           Question::portPower,   Question::deviceTree};
  const std::shared_ptr<MachineSource> machine = sourceOfThisMachine();
  for (auto iteration : state) {
    for (const Question question : questions) {
      benchmark::DoNotOptimize(machine->answer(question));
    }
  }
}

BENCHMARK(answersOfOneScan)->Unit(benchmark::kMillisecond);

} // namespace
