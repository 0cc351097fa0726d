// The part of PortScanner that ejects volumes.
#include "async/awaitables.h"
#include "base/text.h"
#include "i18n/loc.h"
#include "scanner/drive_use.h"
#include "scanner/port_scanner.h"

#include <exception>
#include <optional>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds failureDisplayTime{4000};

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

/// Closes the folder again, because an open one would prevent unmounting.
VolumeIdentity volumeAt(const std::string& mountPoint, VolumeFiles& volumes) {
  const std::unique_ptr<VolumeFolder> folder = volumes.openFolder(mountPoint);
  return folder ? folder->identity() : VolumeIdentity();
}

} // namespace

QCoro::Task<> PortScanner::eject(std::string mountPoint) {
  return runEjection(shared_from_this(), std::move(mountPoint));
}

QCoro::Task<> PortScanner::runEjection(std::shared_ptr<PortScanner> self, std::string mountPoint) {
  const std::shared_ptr<MainQueue> queue = self->outside_.acquisition.queue;
  HopToMainThread hop(queue);
  co_await hop;
  if (self->outside_.ejector == nullptr || self->isDriveInUse(mountPoint) ||
      self->isDriveMeasured(mountPoint)) {
    co_return;
  }
  const std::uint64_t ejection = ++self->ejectionCounts_[mountPoint];
  std::optional<DriveUse> driveUse(std::in_place, self, mountPoint);
  EjectOutcome outcome;
  try {
    auto asking = askToEject(self, mountPoint);
    outcome = co_await asking;
  } catch (const std::exception&) { // such as std::bad_alloc: the outcome stays "not ejected"
  }
  if (outcome.isEjected) {
    self->publishEjectState(mountPoint, std::nullopt);
    auto scan = self->scan();
    co_await scan;
    co_return;
  }
  driveUse.reset();
  self->publishEjectState(mountPoint, failed(outcome));
  Delay reading(queue, failureDisplayTime);
  co_await reading;
  if (self->ejectionCounts_[mountPoint] == ejection) { // else it shows a newer ejection
    self->publishEjectState(mountPoint, std::nullopt);
  }
}

/// Does not eject if another volume than the one that was shown is mounted there by now.
QCoro::Task<EjectOutcome> PortScanner::askToEject(std::shared_ptr<PortScanner> self,
                                                  std::string mountPoint) {
  self->publishEjectState(mountPoint, EjectState{EjectState::Ejecting{}});
  const auto asking = [ejector = self->outside_.ejector, volumes = self->outside_.volumes,
                       shown = self->identityOf(mountPoint), mountPoint]() -> EjectOutcome {
    if (volumes && shown && !shown->isSameVolumeAs(volumeAt(mountPoint, *volumes))) {
      return {.refusal = EjectRefusal::volumeChanged};
    }
    return ejector->eject(
        {.mountPoint = mountPoint, .deviceNumber = shown ? shown->deviceNumber : std::nullopt});
  };
  InBackground<EjectOutcome> ejecting(self->outside_.acquisition.queue, asking);
  co_return co_await ejecting;
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
