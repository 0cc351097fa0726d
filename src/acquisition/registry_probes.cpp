#include "acquisition/registry_probes.h"

#include "acquisition/awaitables.h"
#include "registry/container_id_entries.h"
#include "registry/port_controllers.h"
#include "registry/port_power.h"
#include "registry/property_list.h"

#include <optional>
#include <utility>

namespace tamberline {

namespace registryArguments {
const std::vector<std::string> portControllers = {"-a", "-r", "-c", "AppleHPMDevice", "-l"};
const std::vector<std::string> portPower = {"-a", "-r", "-c", "AppleSmartBattery", "-l"};
const std::vector<std::string> deviceTree = {"-a", "-l", "-p", "IODeviceTree"};
const std::vector<std::string> usbHostDevices = {"-a", "-r", "-c", "IOUSBHostDevice", "-l"};
const std::vector<std::string> powerSource = {"-c", "IOPMPowerSource", "-r", "-a"};
} // namespace registryArguments

namespace {

/// One dump, read by `read`; a default result when there is nothing to read.
template <typename Result>
QCoro::Task<Result> probe(Acquisition acquisition, std::vector<std::string> arguments,
                          Result (*read)(const PropertyList& dump)) {
  InBackground<ToolOutput> toolRun(acquisition.queue, [tools = acquisition.tools, arguments] {
    return tools->run("/usr/sbin/ioreg", arguments);
  });
  ToolOutput output = co_await toolRun;
  const std::optional<PropertyList> dump = PropertyList::decode(std::move(output.standardOutput));
  co_return dump ? read(*dump) : Result{};
}

} // namespace

QCoro::Task<std::vector<HPMPort>> fetchHPMPorts(Acquisition acquisition) {
  return probe(std::move(acquisition), registryArguments::portControllers, portControllersIn);
}

QCoro::Task<std::map<std::int64_t, PortPowerOut>> fetchPortPowerOut(Acquisition acquisition) {
  return probe(std::move(acquisition), registryArguments::portPower, portPowerOutIn);
}

QCoro::Task<std::map<std::int64_t, std::int64_t>> fetchPortCurrentLimits(Acquisition acquisition) {
  return probe(std::move(acquisition), registryArguments::deviceTree, portCurrentLimitsIn);
}

QCoro::Task<ContainerIDs> fetchContainerIDs(Acquisition acquisition) {
  return probe(std::move(acquisition), registryArguments::usbHostDevices, containerIDsIn);
}

QCoro::Task<FedDetails> fetchFedDetails(Acquisition acquisition) {
  return probe(std::move(acquisition), registryArguments::powerSource, fedDetailsIn);
}

} // namespace tamberline
