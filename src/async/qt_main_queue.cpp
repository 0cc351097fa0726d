#include "async/qt_main_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QThread>
#include <QTimerEvent>

#include <limits>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tamberline {

/// Work posted to the main thread. It is passed under a standard mutex, which the thread sanitizer
/// understands; the Qt event only wakes the main thread.
class QtMainQueue::Inbox {
public:
  void open(QObject* receiver) {
    const std::lock_guard lock(mutex_);
    receiver_ = receiver;
  }

  /// Work posted from now on is dropped at once, on the posting thread.
  void close() {
    const std::lock_guard lock(mutex_);
    receiver_ = nullptr;
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

  /// Drops all waiting work. Work that other threads post from now on is dropped on the main thread
  /// too, because work that holds a coroutine must not unwind it on another thread.
  void end() {
    hasEnded_ = true;
    std::map<int, DelayedWork> dropped = std::exchange(delayed_, {});
    for (const auto& [timer, work] : dropped) {
      killTimer(timer);
    }
    inbox_->takeAll().clear();
  }

  bool hasEnded() const { return hasEnded_; }

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
  /// The event only wakes the thread; the work is in the inbox.
  void customEvent(QEvent* /*event*/) override {
    for (const Work& work : inbox_->takeAll()) {
      if (hasEnded_) { // perhaps because of the previous work
        return;
      }
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
  std::map<int, DelayedWork> delayed_; // by timer; Qt reuses the numbers of ended timers
  WorkItem lastItem_ = 0;
  bool hasEnded_ = false;
};

QtMainQueue::QtMainQueue(std::function<void()> prepareTask)
    : prepareTask_(std::move(prepareTask)), inbox_(std::make_shared<Inbox>()),
      receiver_(std::make_unique<Receiver>(inbox_)) {
  inbox_->open(receiver_.get());
}

QtMainQueue::~QtMainQueue() {
  end();
  inbox_->close();
}

void QtMainQueue::end() {
  receiver_->end();
  std::exchange(nextOfBackgroundWork_, {}).clear();
}

bool QtMainQueue::isMainThread() const {
  return QThread::currentThread() == receiver_->thread();
}

void QtMainQueue::post(Work work) {
  if (isMainThread() && receiver_->hasEnded()) {
    return;
  }
  inbox_->post(std::move(work));
}

MainQueue::WorkItem QtMainQueue::postLater(std::chrono::milliseconds delay, Work work) {
  constexpr WorkItem droppedItem = std::numeric_limits<WorkItem>::max();
  return receiver_->hasEnded() ? droppedItem : receiver_->startItem(delay, std::move(work));
}

void QtMainQueue::cancel(WorkItem item) {
  receiver_->cancelItem(item);
}

void QtMainQueue::runInBackground(Work work, Work next) {
  if (receiver_->hasEnded()) {
    return;
  }
  const WorkItem item = ++lastBackgroundWork_;
  nextOfBackgroundWork_[item] = std::move(next);
  const Work finish = [this, item] { finishBackgroundWork(item); };
  try {
    std::thread([inbox = inbox_, prepare = prepareTask_, work = std::move(work), finish]() mutable {
      if (prepare) {
        prepare();
      }
      work();
      work = nullptr; // release what it holds before `finish`, which may end the process
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
