#pragma once

#include <functional>

namespace tamberline {

/// What the system tells: something was attached or removed; the power source may have changed.
struct PortEvents {
  std::function<void()> registryChanged;
  std::function<void()> powerChanged;
};

/// Where the events come from. Main thread only; events arrive between `start` and `stop`, and not
/// for what was attached before.
class PortEventSource {
public:
  PortEventSource() = default;
  PortEventSource(const PortEventSource&) = delete;
  PortEventSource& operator=(const PortEventSource&) = delete;
  virtual ~PortEventSource() = default;

  virtual void start(PortEvents events) = 0;

  /// Harmless without `start` and a second time.
  virtual void stop() = 0;

  virtual bool isOnExternalPower() const = 0;
};

/// Events of a machine on which nothing ever changes: for a program that scans once.
class SilentEventSource final : public PortEventSource {
public:
  void start(PortEvents /*events*/) override {}
  void stop() override {}
  bool isOnExternalPower() const override { return true; }
};

} // namespace tamberline
