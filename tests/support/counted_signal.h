#pragma once

#include <QObject>

namespace tamberline {

/// How often an object has emitted a signal since this was constructed.
class CountedSignal : public QObject {
public:
  template <typename Sender, typename Signal>
  CountedSignal(const Sender* sender, Signal signal) {
    connect(sender, signal, this, [this] { ++count_; });
  }

  int count() const { return count_; }

private:
  int count_ = 0;
};

} // namespace tamberline
