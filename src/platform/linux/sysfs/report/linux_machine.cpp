#include "platform/linux/sysfs/report/linux_machine.h"

#include "platform/linux/sysfs/report/property_list_text.h"
#include "platform/linux/sysfs/report/registry_dumps.h"
#include "platform/linux/sysfs/report/report_sections.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace tamberline {
namespace {

using nlohmann::json;

std::string asReport(const json& content) {
  return content.dump(-1, ' ', /*ensure_ascii=*/false, json::error_handler_t::replace);
}

std::string answerOf(const sysfs::Machine& machine, Question question) {
  switch (question) {
  case Question::thunderbolt:
    return asReport(sysfs::thunderboltSection(machine));
  case Question::usb:
    return asReport(sysfs::usbSection(machine));
  case Question::power:
    return asReport(sysfs::powerSection(machine));
  case Question::portControllers:
    return sysfs::asPropertyList(sysfs::portControllerDump(machine));
  case Question::portPower:
    return sysfs::asPropertyList(sysfs::portPowerDump(machine));
  case Question::deviceTree:
    return sysfs::asPropertyList(sysfs::deviceTreeDump(machine));
  case Question::usbHostDevices:
    return sysfs::asPropertyList(sysfs::usbHostDeviceDump(machine));
  case Question::powerSource:
    return sysfs::asPropertyList(sysfs::powerSourceDump(machine));
  case Question::newerUsb:
    break;
  }
  return {};
}

} // namespace

LinuxMachine::LinuxMachine(MachineReader readMachine) : readMachine_(std::move(readMachine)) {}

std::string LinuxMachine::answer(Question question) {
  const std::shared_ptr<const sysfs::Machine> machine = machineFor(question);
  return answerOf(*machine, question);
}

std::shared_ptr<const sysfs::Machine> LinuxMachine::machineFor(Question question) {
  const std::scoped_lock lock(mutex_);
  if (machine_ == nullptr || answered_.contains(question)) {
    machine_ = std::make_shared<const sysfs::Machine>(readMachine_());
    answered_.clear();
  }
  answered_.insert(question);
  return machine_;
}

} // namespace tamberline
