#include "platform/linux_devices/kernel_tool_runner.h"

#include "base/never_destroyed.h"
#include "platform/linux_devices/property_list_text.h"
#include "platform/linux_devices/registry_dumps.h"
#include "platform/linux_devices/report_sections.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

using Describe = json (*)(const sysfs::Machine& machine);

struct Answer {
  ToolCommand command;
  Describe describe;
  std::string (*asText)(const json& content);
};

std::string asReport(const json& content) {
  return content.dump(-1, ' ', /*ensure_ascii=*/false, json::error_handler_t::replace);
}

const std::vector<Answer>& answers() {
  static const NeverDestroyed<std::vector<Answer>> all({
      {reportCommand("SPThunderboltDataType"), sysfs::thunderboltSection, asReport},
      {reportCommand("SPUSBDataType"), sysfs::usbSection, asReport},
      {reportCommand("SPPowerDataType"), sysfs::powerSection, asReport},
      {registryCommand(RegistryDump::portControllers), sysfs::portControllerDump,
       sysfs::asPropertyList},
      {registryCommand(RegistryDump::portPower), sysfs::portPowerDump, sysfs::asPropertyList},
      {registryCommand(RegistryDump::deviceTree), sysfs::deviceTreeDump, sysfs::asPropertyList},
      {registryCommand(RegistryDump::usbHostDevices), sysfs::usbHostDeviceDump,
       sysfs::asPropertyList},
      {registryCommand(RegistryDump::powerSource), sysfs::powerSourceDump, sysfs::asPropertyList},
  });
  return *all;
}

} // namespace

KernelToolRunner::KernelToolRunner(MachineReader readMachine)
    : readMachine_(std::move(readMachine)) {}

ToolOutput KernelToolRunner::run(const std::string& executable,
                                 const std::vector<std::string>& arguments) {
  const ToolCommand command{executable, arguments};
  const auto answer = std::find_if(answers().begin(), answers().end(),
                                   [&](const Answer& known) { return known.command == command; });
  if (answer == answers().end()) {
    return {};
  }
  const std::shared_ptr<const sysfs::Machine> machine = machineFor(command);
  return {answer->asText(answer->describe(*machine)), 0};
}

ToolOutput KernelToolRunner::runWithErrors(const std::string& executable,
                                           const std::vector<std::string>& arguments) {
  return run(executable, arguments);
}

std::shared_ptr<const sysfs::Machine> KernelToolRunner::machineFor(const ToolCommand& command) {
  const std::scoped_lock lock(mutex_);
  const bool wasAsked = std::find(answered_.begin(), answered_.end(), command) != answered_.end();
  if (machine_ == nullptr || wasAsked) {
    machine_ = std::make_shared<const sysfs::Machine>(readMachine_());
    answered_.clear();
  }
  answered_.push_back(command);
  return machine_;
}

} // namespace tamberline
