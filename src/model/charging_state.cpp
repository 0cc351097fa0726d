#include "model/charging_state.h"

#include <algorithm>
#include <utility>

namespace tamberline {

bool ChargingReasons::contains(std::int64_t bit) const {
  const auto masks = {notCharging, slowCharging, inhibited};
  return std::any_of(masks.begin(), masks.end(), [bit](const std::optional<std::int64_t>& mask) {
    return (static_cast<std::uint64_t>(mask.value_or(0)) & static_cast<std::uint64_t>(bit)) != 0;
  });
}

namespace {

/// Absent if several ports could be the adapter's, or if it is not a USB-C port.
std::optional<std::int64_t> onlyChargingPort(const std::vector<HPMPort>& controllers) {
  const auto isCharger = [](const HPMPort& port) { return port.isCharger(); };
  const auto found = std::find_if(controllers.begin(), controllers.end(), isCharger);
  const bool isOnlyOne = std::count_if(controllers.begin(), controllers.end(), isCharger) == 1;
  return isOnlyOne && !found->isMagSafe ? std::optional(found->portNumber) : std::nullopt;
}

void addContract(const HPMPort& port, AdapterState& adapter) {
  if (adapter.offers.empty()) {
    adapter.offers = port.details.offers;
  }
  if (!adapter.agreedVolts && !adapter.agreedAmps && port.agreedPower) {
    adapter.agreedVolts = port.agreedPower->volts;
    adapter.agreedAmps = port.agreedPower->amps;
  }
}

} // namespace

void addPortFacts(const std::vector<HPMPort>& controllers, ChargingState& state) {
  for (const HPMPort& port : controllers) {
    state.maxIntakeWatts = std::max(state.maxIntakeWatts, maxWattsOf(port.details.intake));
  }
  const auto number = onlyChargingPort(controllers);
  if (!number || state.isExternalPowerConnected != true) {
    return;
  }
  AdapterState adapter = state.adapter.value_or(AdapterState());
  adapter.portNumber = number;
  addContract(*usbcController(controllers, *number), adapter);
  state.adapter = std::move(adapter);
}

const std::vector<PowerOffer>& offersOn(const HPMPort& port,
                                        const std::optional<ChargingState>& charging) {
  const bool isAdapterHere = charging && charging->adapter && !port.isMagSafe &&
                             charging->adapter->portNumber == port.portNumber;
  return isAdapterHere ? charging->adapter->offers : port.details.offers;
}

} // namespace tamberline
