#pragma once

#include "scanner/port_event_source.h"

#include <utility>

namespace tamberline {

/// Events that the test sends.
class SimulatedEventSource final : public PortEventSource {
public:
  void start(PortEvents events) override {
    events_ = std::move(events);
    ++startCount;
  }
  void stop() override {
    events_ = {};
    ++stopCount;
  }
  bool isOnExternalPower() const override { return isOnAC; }

  /// Reports that something was attached or removed.
  void changeRegistry() const { events_.registryChanged(); }
  void changePower(bool toExternal) {
    isOnAC = toExternal;
    events_.powerChanged();
  }
  bool isRunning() const { return events_.registryChanged != nullptr; }

  bool isOnAC = true;
  int startCount = 0;
  int stopCount = 0;

private:
  PortEvents events_;
};

} // namespace tamberline
