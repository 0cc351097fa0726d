#include "acquisition/registry_probes.h"

#include "async/awaitables.h"
#include "registry/probe_results.h"
#include "registry/property_list.h"

#include <optional>
#include <utility>

namespace tamberline {

namespace {

/// Asks `question` and parses the dump with `read`. Returns a default result if the answer is not a
/// property list.
template <typename Result>
QCoro::Task<Result> probe(Acquisition acquisition, Question question,
                          Result (*read)(const PropertyList& dump)) {
  InBackground<std::string> asking(acquisition.queue, [machine = acquisition.machine, question] {
    return machine->answer(question);
  });
  std::string answer = co_await asking;
  const std::optional<PropertyList> dump = PropertyList::decode(std::move(answer));
  co_return dump ? read(*dump) : Result{};
}

} // namespace

QCoro::Task<std::vector<HPMPort>> fetchHPMPorts(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::portControllers, portControllersIn);
}

QCoro::Task<std::map<std::int64_t, PortPowerOut>> fetchPortPowerOut(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::portPower, portPowerOutIn);
}

QCoro::Task<std::map<std::int64_t, std::int64_t>> fetchPortCurrentLimits(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::deviceTree, portCurrentLimitsIn);
}

QCoro::Task<ContainerIDs> fetchContainerIDs(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::usbHostDevices, containerIDsIn);
}

QCoro::Task<FedDetails> fetchFedDetails(Acquisition acquisition) {
  return probe(std::move(acquisition), Question::powerSource, fedDetailsIn);
}

} // namespace tamberline
