#pragma once

#include "platform/linux_volumes/udisks_ejector.h"

#include <string>

namespace tamberline {

/// Ejects, and says what came of it: "ejected", or "failed: " and the message.
inline std::string eject(const std::string& mountPoint) {
  const EjectOutcome outcome = UDisksEjector().eject(mountPoint);
  return (outcome.isEjected ? "ejected" : "failed: ") + outcome.message;
}

} // namespace tamberline
