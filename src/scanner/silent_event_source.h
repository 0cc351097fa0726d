#pragma once

#include "scanner/port_event_source.h"

namespace tamberline {

/// Events of a machine on which nothing ever changes: for a program that scans once.
class SilentEventSource final : public PortEventSource {
public:
  void start(PortEvents /*events*/) override {}
  void stop() override {}
  bool isOnExternalPower() const override { return true; }
};

} // namespace tamberline
