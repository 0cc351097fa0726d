#pragma once

#include <QAnimationDriver>
#include <QCoreApplication>

#include <chrono>

namespace tamberline {

/// All of Qt's animations, in the hands of a test while this lives: they move when the test says
/// how much later it is, in as many frames as it likes. One at a time.
class HandDrivenAnimations : public QAnimationDriver {
public:
  HandDrivenAnimations() {
    // Time counts from the moment at which something begins to move.
    connect(this, &QAnimationDriver::started, this, [this] { elapsed_ = {}; });
    install();
  }

  HandDrivenAnimations(const HandDrivenAnimations&) = delete;
  HandDrivenAnimations& operator=(const HandDrivenAnimations&) = delete;
  ~HandDrivenAnimations() override { letQtKeepUp(); }

  qint64 elapsed() const override { return elapsed_.count(); }

  /// The next frame comes this much later.
  void advanceBy(std::chrono::milliseconds duration) {
    letQtKeepUp();
    if (isRunning()) {
      elapsed_ += duration;
      advanceAnimation();
    }
  }

private:
  /// Qt starts and stops its timer later than the first and last animation, and these later still.
  static void letQtKeepUp() {
    for (int step = 0; step < 2; ++step) {
      QCoreApplication::processEvents();
    }
  }

  std::chrono::milliseconds elapsed_{};
};

} // namespace tamberline
