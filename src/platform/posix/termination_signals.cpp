#include "platform/posix/termination_signals.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace tamberline {
namespace {

/// The only state that the signal handler uses, because a handler may access only lock-free
/// atomics.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<int> wakeUpDescriptor = -1;
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
std::atomic<bool> isAsked = false;

void wakeUp(int /*signal*/) {
  const int error = errno;
  isAsked = true;
  const char byte = 0;
  // If the pipe is full, the reader has already been woken.
  [[maybe_unused]] const ssize_t count = write(wakeUpDescriptor, &byte, 1);
  errno = error;
}

void drain(int descriptor) {
  std::array<char, 64> bytes{};
  while (read(descriptor, bytes.data(), bytes.size()) > 0) {
  }
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onAsked) {
  if (!pipe_.readEnd.isOpen()) {
    return; // the signals keep their former actions
  }
  notifier_ = std::make_unique<QSocketNotifier>(pipe_.readEnd.number(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [descriptor = pipe_.readEnd.number(), onAsked = std::move(onAsked)] {
                     drain(descriptor);
                     onAsked();
                   });
  isAsked = false;
  wakeUpDescriptor = pipe_.writeEnd.number();
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    listen(signal);
  }
}

TerminationSignals::~TerminationSignals() {
  struct sigaction ignoring = {};
  ignoring.sa_handler = SIG_IGN;
  for (const Treatment& treatment : treatments_) {
    sigaction(treatment.signal, &ignoring, nullptr);
  }
  // Signals before this point have set `isAsked`; later ones are ignored.
  for (const Treatment& treatment : treatments_) {
    if (!isAsked) {
      sigaction(treatment.signal, &treatment.former, nullptr);
    }
  }
  wakeUpDescriptor = -1;
}

TerminationSignals::Pipe TerminationSignals::makePipe() {
  std::array<int, 2> ends = {-1, -1};
  if (pipe(ends.data()) == 0) {
    for (const int end : ends) {
      fcntl(end, F_SETFD, FD_CLOEXEC);
      fcntl(end, F_SETFL, O_NONBLOCK);
    }
  }
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

void TerminationSignals::listen(int signal) {
  Treatment treatment{.signal = signal};
  sigaction(signal, nullptr, &treatment.former);
  if (treatment.former.sa_handler == SIG_IGN) {
    return;
  }
  struct sigaction action = {};
  action.sa_handler = wakeUp;
  action.sa_flags = SA_RESTART;
  sigaction(signal, &action, nullptr);
  treatments_.push_back(treatment);
}

} // namespace tamberline
