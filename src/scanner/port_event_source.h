#pragma once

#include <functional>

namespace tamberline {

/// Called when something was attached or removed, and when the power source may have changed.
struct PortEvents {
  std::function<void()> registryChanged;
  std::function<void()> powerChanged;
};

/// Reports events between `start` and `stop`, but none for devices that were attached before
/// `start`. Main thread only.
class PortEventSource {
public:
  PortEventSource() = default;
  PortEventSource(const PortEventSource&) = delete;
  PortEventSource& operator=(const PortEventSource&) = delete;
  virtual ~PortEventSource() = default;

  virtual void start(PortEvents events) = 0;

  /// May be called without `start` and repeatedly.
  virtual void stop() = 0;

  virtual bool isOnExternalPower() const = 0;
};

/// A source without events, for a program that scans once.
class SilentEventSource final : public PortEventSource {
public:
  void start(PortEvents /*events*/) override {}
  void stop() override {}
  bool isOnExternalPower() const override { return true; }
};

} // namespace tamberline
