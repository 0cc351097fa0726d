#pragma once

#include <QAnimationDriver>
#include <QCoreApplication>

#include <chrono>

namespace tamberline {

/// Controls all of Qt's animations during its lifetime: the test says how much time has passed and
/// in how many frames. Only one at a time.
class HandDrivenAnimations : public QAnimationDriver {
public:
  HandDrivenAnimations() {
    // Time starts when something starts to move.
    connect(this, &QAnimationDriver::started, this, [this] { elapsed_ = {}; });
    install();
  }

  HandDrivenAnimations(const HandDrivenAnimations&) = delete;
  HandDrivenAnimations& operator=(const HandDrivenAnimations&) = delete;
  ~HandDrivenAnimations() override { letQtKeepUp(); }

  qint64 elapsed() const override { return elapsed_.count(); }

  /// Renders the next frame after this time.
  void advanceBy(std::chrono::milliseconds duration) {
    letQtKeepUp();
    if (isRunning()) {
      elapsed_ += duration;
      advanceAnimation();
    }
  }

private:
  /// Qt starts and stops its timer after the first and last animation, and the animations still
  /// later.
  static void letQtKeepUp() {
    for (int step = 0; step < 2; ++step) {
      QCoreApplication::processEvents();
    }
  }

  std::chrono::milliseconds elapsed_{};
};

} // namespace tamberline
