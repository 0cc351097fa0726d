#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <functional>

namespace tamberline {

/// Runs the event loop until the condition holds. Returns false if it still does not hold after a
/// time that is long enough for any machine. Needs an application object.
inline bool runEventsUntil(const std::function<bool()>& condition) {
  using namespace std::chrono_literals;
  const QDeadlineTimer deadline(30s);
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] {
    if (condition() || deadline.hasExpired()) {
      loop.quit();
    }
  });
  look.start(1ms);
  loop.exec();
  return condition();
}

} // namespace tamberline
