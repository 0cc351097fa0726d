#include "acquisition/registry_probes.h"

#include "registry/probe_results.h"
#include "registry/property_list.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tamberline {

namespace {

/// A default result if the answer is not a property list.
template <typename Result>
Result readDump(std::string answer, Result (*read)(const PropertyList& dump)) {
  const std::optional<PropertyList> dump = PropertyList::decode(std::move(answer));
  return dump ? read(*dump) : Result{};
}

/// Asks `question` and parses the dump with `read`.
template <typename Result>
QCoro::Task<Result> probe(Acquisition acquisition, Question question,
                          Result (*read)(const PropertyList& dump)) {
  auto asking = ask(std::move(acquisition), question);
  MachineAnswer answer = co_await asking;
  co_return readDump(std::move(answer.text), read);
}

BatteryController batteryControllerIn(const PropertyList& dump) {
  return {.portPowerOut = portPowerOutIn(dump), .charging = chargingIn(dump)};
}

USBHostDevices usbHostDevicesIn(const PropertyList& dump) {
  return {.containerIDs = containerIDsIn(dump), .abilities = usbAbilitiesIn(dump)};
}

} // namespace

QCoro::Task<std::vector<HPMPort>> fetchHPMPorts(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::portControllers, portControllersIn);
}

QCoro::Task<BatteryController> fetchPortPowerOut(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::portPower, batteryControllerIn);
}

QCoro::Task<std::map<std::int64_t, std::int64_t>> fetchPortCurrentLimits(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::deviceTree, portCurrentLimitsIn);
}

QCoro::Task<LastReading<USBHostDevices>> fetchContainerIDs(Acquisition acquisition,
                                                           LastReading<USBHostDevices> last) {
  auto asking = ask(std::move(acquisition), Question::usbHostDevices);
  MachineAnswer answer = co_await asking;
  if (last && last->digest == answer.digest) {
    co_return last;
  }
  Reading<USBHostDevices> reading{.digest = answer.digest, .result = {}};
  reading.result = readDump(std::move(answer.text), usbHostDevicesIn);
  co_return std::make_shared<const Reading<USBHostDevices>>(std::move(reading));
}

QCoro::Task<FedDetails> fetchFedDetails(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::powerSource, fedDetailsIn);
}

} // namespace tamberline
