#pragma once

#include "storage/volume_ejector.h"

namespace tamberline {

/// Ejects through UDisks2, the disk service of Linux desktops, and passes on its error message. The
/// message is empty if the service's answers cannot be decoded.
class UDisksEjector final : public VolumeEjector {
public:
  EjectOutcome eject(const EjectRequest& request) override;
};

} // namespace tamberline
