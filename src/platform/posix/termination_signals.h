#pragma once

#include "platform/posix/descriptor.h"

#include <QSocketNotifier>

#include <csignal>
#include <functional>
#include <memory>
#include <vector>

namespace tamberline {

/// Calls back on the main thread when SIGTERM, SIGINT or SIGHUP asks the program to end, so that it
/// can shut down cleanly. Meanwhile only SIGKILL ends the program at once. Signals that were
/// ignored before stay ignored. If a signal has arrived, later ones are ignored even after this
/// object is destroyed, so that they cannot interrupt the shutdown. Only one object may exist at a
/// time; it needs an application object.
class TerminationSignals {
public:
  explicit TerminationSignals(std::function<void()> onAsked);
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;
  ~TerminationSignals();

private:
  struct Pipe {
    Descriptor readEnd;
    Descriptor writeEnd;
  };
  struct Treatment {
    int signal = 0;
    struct sigaction former = {};
  };

  static Pipe makePipe();
  void listen(int signal);

  Pipe pipe_ = makePipe();
  std::unique_ptr<QSocketNotifier> notifier_;
  std::vector<Treatment> treatments_;
};

} // namespace tamberline
