#pragma once

#include "storage/volume_ejector.h"

namespace tamberline {

/// Ejects through UDisks2, the disk service of Linux desktops; what that says of a failure is the
/// message. The message is empty when its answers cannot be understood.
class UDisksEjector final : public VolumeEjector {
public:
  EjectOutcome eject(const EjectRequest& request) override;
};

} // namespace tamberline
