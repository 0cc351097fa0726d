#include "acquisition/registry_probes.h"

#include "acquisition/tool_commands.h"
#include "async/awaitables.h"
#include "registry/container_id_entries.h"
#include "registry/port_controllers.h"
#include "registry/port_power.h"
#include "registry/property_list.h"

#include <optional>
#include <utility>

namespace tamberline {

namespace {

/// One dump, read by `read`; a default result when there is nothing to read.
template <typename Result>
QCoro::Task<Result> probe(Acquisition acquisition, RegistryDump kind,
                          Result (*read)(const PropertyList& dump)) {
  InBackground<ToolOutput> toolRun(acquisition.queue,
                                   [tools = acquisition.tools, command = registryCommand(kind)] {
                                     return tools->run(command.executable, command.arguments);
                                   });
  ToolOutput output = co_await toolRun;
  const std::optional<PropertyList> dump = PropertyList::decode(std::move(output.standardOutput));
  co_return dump ? read(*dump) : Result{};
}

} // namespace

QCoro::Task<std::vector<HPMPort>> fetchHPMPorts(Acquisition acquisition) {
  return probe(std::move(acquisition), RegistryDump::portControllers, portControllersIn);
}

QCoro::Task<std::map<std::int64_t, PortPowerOut>> fetchPortPowerOut(Acquisition acquisition) {
  return probe(std::move(acquisition), RegistryDump::portPower, portPowerOutIn);
}

QCoro::Task<std::map<std::int64_t, std::int64_t>> fetchPortCurrentLimits(Acquisition acquisition) {
  return probe(std::move(acquisition), RegistryDump::deviceTree, portCurrentLimitsIn);
}

QCoro::Task<ContainerIDs> fetchContainerIDs(Acquisition acquisition) {
  return probe(std::move(acquisition), RegistryDump::usbHostDevices, containerIDsIn);
}

QCoro::Task<FedDetails> fetchFedDetails(Acquisition acquisition) {
  return probe(std::move(acquisition), RegistryDump::powerSource, fedDetailsIn);
}

} // namespace tamberline
