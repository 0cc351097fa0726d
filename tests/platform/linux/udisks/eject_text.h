#pragma once

#include "platform/linux/udisks/udisks_ejector.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {

inline std::string textOf(EjectRefusal refusal) {
  switch (refusal) {
  case EjectRefusal::volumeChanged:
    return "not there any more";
  case EjectRefusal::runningSystem:
    return "drive of the running system";
  case EjectRefusal::severalDrives:
    return "several drives";
  }
  return "?";
}

/// Ejects, and returns the outcome: "ejected", "refused: " and the reason, or "failed: " and the
/// message.
inline std::string eject(const std::string& mountPoint,
                         std::optional<std::uint64_t> deviceNumber = std::nullopt) {
  const EjectOutcome outcome =
      UDisksEjector().eject({.mountPoint = mountPoint, .deviceNumber = deviceNumber});
  if (outcome.refusal) {
    return "refused: " + textOf(*outcome.refusal);
  }
  return (outcome.isEjected ? "ejected" : "failed: ") + outcome.message;
}

} // namespace tamberline
