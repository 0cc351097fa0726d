#pragma once

#include "platform/posix/descriptor.h"

#include <QSocketNotifier>

#include <csignal>
#include <functional>
#include <memory>
#include <vector>

namespace tamberline {

/// Tells the program on its main thread when somebody asks it to end (SIGTERM, SIGINT, SIGHUP), so
/// that it can end in order; only SIGKILL ends it at once then. Signals that were ignored before
/// stay ignored. Once asked, the program is ending: what comes after this object is ignored, so
/// that a second signal cannot cut the end short. One object at a time; needs an application
/// object.
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
