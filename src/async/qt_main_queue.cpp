#include "async/qt_main_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>
#include <QTimerEvent>

#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tamberline {

/// Work on its way to the main thread. It is handed over under a standard mutex, which the thread
/// sanitizer understands, and the event carries nothing but the wake-up.
class QtMainQueue::Inbox {
public:
  void open(QObject* receiver) {
    const std::lock_guard lock(mutex_);
    receiver_ = receiver;
  }

  /// What nobody will run any more; from now on everything is dropped on arrival.
  std::vector<Work> close() {
    const std::lock_guard lock(mutex_);
    receiver_ = nullptr;
    return std::exchange(works_, {});
  }

  void post(Work work) {
    const std::lock_guard lock(mutex_);
    if (receiver_ == nullptr) {
      return;
    }
    works_.push_back(std::move(work));
    if (works_.size() == 1) {
      QCoreApplication::postEvent(receiver_, new QEvent(QEvent::User));
    }
  }

  std::vector<Work> takeAll() {
    const std::lock_guard lock(mutex_);
    return std::exchange(works_, {});
  }

private:
  std::mutex mutex_;
  QObject* receiver_ = nullptr;
  std::vector<Work> works_;
};

class QtMainQueue::Receiver final : public QObject {
public:
  explicit Receiver(std::shared_ptr<Inbox> inbox) : inbox_(std::move(inbox)) {}

  WorkItem startItem(std::chrono::milliseconds delay, Work work) {
    const WorkItem item = ++lastItem_;
    const int timer = startTimer(delay, Qt::PreciseTimer);
    delayed_[timer] = {item, std::move(work)};
    return item;
  }

  void cancelAll() {
    std::map<int, DelayedWork> dropped = std::exchange(delayed_, {});
    for (const auto& [timer, work] : dropped) {
      killTimer(timer);
    }
  }

  void cancelItem(WorkItem item) {
    for (auto entry = delayed_.begin(); entry != delayed_.end(); ++entry) {
      if (entry->second.item == item) {
        killTimer(entry->first);
        delayed_.erase(entry);
        return;
      }
    }
  }

protected:
  /// The event is only the wake-up; what it says was handed over under the inbox's mutex.
  void customEvent(QEvent* /*event*/) override {
    for (const Work& work : inbox_->takeAll()) {
      work();
    }
  }

  void timerEvent(QTimerEvent* event) override {
    const auto found = delayed_.find(event->timerId());
    if (found == delayed_.end()) {
      return;
    }
    const Work work = std::move(found->second.work);
    killTimer(found->first);
    delayed_.erase(found);
    work();
  }

private:
  struct DelayedWork {
    WorkItem item = 0;
    Work work;
  };

  std::shared_ptr<Inbox> inbox_;
  std::map<int, DelayedWork> delayed_; // by timer; Qt uses the numbers of ended timers again
  WorkItem lastItem_ = 0;
};

QtMainQueue::QtMainQueue()
    : inbox_(std::make_shared<Inbox>()), receiver_(std::make_unique<Receiver>(inbox_)) {
  inbox_->open(receiver_.get());
}

QtMainQueue::~QtMainQueue() {
  end();
}

void QtMainQueue::end() {
  inbox_->close();
  receiver_->cancelAll();
  std::exchange(nextOfBackgroundWork_, {}).clear();
}

bool QtMainQueue::isMainThread() const {
  return QThread::currentThread() == receiver_->thread();
}

void QtMainQueue::post(Work work) {
  inbox_->post(std::move(work));
}

MainQueue::WorkItem QtMainQueue::postLater(std::chrono::milliseconds delay, Work work) {
  return receiver_->startItem(delay, std::move(work));
}

void QtMainQueue::cancel(WorkItem item) {
  receiver_->cancelItem(item);
}

void QtMainQueue::runInBackground(Work work, Work next) {
  const WorkItem item = ++lastBackgroundWork_;
  nextOfBackgroundWork_[item] = std::move(next);
  const Work finish = [this, item] { finishBackgroundWork(item); };
  try {
    std::thread([inbox = inbox_, work = std::move(work), finish]() mutable {
      work();
      work = nullptr; // what it holds must not outlive what follows, which may end the process
      inbox->post(finish);
    }).detach();
  } catch (const std::system_error&) {
    inbox_->post(finish);
  }
}

void QtMainQueue::finishBackgroundWork(WorkItem item) {
  const auto found = nextOfBackgroundWork_.find(item);
  const Work next = std::move(found->second);
  nextOfBackgroundWork_.erase(found);
  next();
}

} // namespace tamberline
