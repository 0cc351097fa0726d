// What a scan reads of a Linux machine, and writes for its parsers. Run it in a recorded machine
// (umockdev-run) where this one has no devices.
#include "acquisition/tool_commands.h"
#include "platform/this_machine_tools.h"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

using namespace tamberline;

void answersOfOneScan(benchmark::State& state) {
  const std::vector<ToolCommand> commands = {
      reportCommand("SPThunderboltDataType"),     reportCommand("SPUSBDataType"),
      reportCommand("SPPowerDataType"),           registryCommand(RegistryDump::usbHostDevices),
      registryCommand(RegistryDump::powerSource), registryCommand(RegistryDump::portControllers),
      registryCommand(RegistryDump::portPower),   registryCommand(RegistryDump::deviceTree)};
  const std::shared_ptr<ToolRunner> tools = toolsOfThisMachine();
  for (auto iteration : state) {
    for (const ToolCommand& command : commands) {
      benchmark::DoNotOptimize(tools->run(command.executable, command.arguments));
    }
  }
}

BENCHMARK(answersOfOneScan)->Unit(benchmark::kMillisecond);

} // namespace
