// The part of PortScanner that ejects volumes.
#include "async/awaitables.h"
#include "base/text.h"
#include "i18n/loc.h"
#include "scanner/port_scanner.h"

#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds failureIsShownFor{4000};

std::string_view textOf(EjectRefusal refusal) {
  switch (refusal) {
  case EjectRefusal::volumeChanged:
    return Loc::volumeChanged();
  case EjectRefusal::runningSystem:
    return Loc::ejectRunningSystem();
  case EjectRefusal::severalDrives:
    return Loc::ejectSeveralDrives();
  }
  return Loc::ejectFailed();
}

std::string_view messageOf(const EjectOutcome& outcome) {
  if (outcome.refusal) {
    return textOf(*outcome.refusal);
  }
  const std::string_view message = trimmed(outcome.message);
  return message.empty() ? Loc::ejectFailed() : message;
}

EjectState failed(const EjectOutcome& outcome) {
  return {EjectState::Failed{std::string(messageOf(outcome))}};
}

} // namespace

QCoro::Task<> PortScanner::eject(std::string mountPoint) {
  return runEjection(shared_from_this(), std::move(mountPoint));
}

QCoro::Task<> PortScanner::runEjection(std::shared_ptr<PortScanner> self, std::string mountPoint) {
  const std::shared_ptr<MainQueue> queue = self->outside_.acquisition.queue;
  const std::shared_ptr<VolumeEjector> ejector = self->outside_.ejector;
  HopToMainThread hop(queue);
  co_await hop;
  if (ejector == nullptr || self->isBeingEjected(mountPoint)) {
    co_return;
  }
  const std::uint64_t ejection = ++self->ejectionCounts_[mountPoint];
  self->publishEjectState(mountPoint, EjectState{EjectState::Ejecting{}});
  InBackground<EjectOutcome> ejecting(
      queue, [ejector, mountPoint] { return ejector->eject({.mountPoint = mountPoint}); });
  const EjectOutcome outcome = co_await ejecting;
  if (outcome.isEjected) {
    self->publishEjectState(mountPoint, std::nullopt);
    auto scan = self->scan();
    co_await scan;
    co_return;
  }
  self->publishEjectState(mountPoint, failed(outcome));
  Delay reading(queue, failureIsShownFor);
  co_await reading;
  if (self->ejectionCounts_[mountPoint] == ejection) { // no newer one, whose state is its own
    self->publishEjectState(mountPoint, std::nullopt);
  }
}

bool PortScanner::isBeingEjected(const std::string& mountPoint) const {
  const auto found = ejectStates.get().find(mountPoint);
  return found != ejectStates.get().end() &&
         std::holds_alternative<EjectState::Ejecting>(found->second.state);
}

void PortScanner::publishEjectState(const std::string& mountPoint,
                                    std::optional<EjectState> state) {
  auto states = ejectStates.get();
  states.erase(mountPoint);
  if (state) {
    states.emplace(mountPoint, std::move(*state));
  }
  ejectStates.set(std::move(states));
}

} // namespace tamberline
