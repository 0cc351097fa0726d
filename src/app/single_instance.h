#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QString>

#include <chrono>
#include <functional>

namespace tamberline {

/// Lets only one instance of the program run and notifies it when another is started. A connection
/// to the first instance's socket is the whole message: nothing that comes through it is read.
///
/// Files left by a crash are ignored. If nothing can be locked, every instance is a first one and
/// gets no notifications. Main thread only; needs an application object.
class SingleInstance {
public:
  /// What a new instance asks the first one to do.
  enum class Wish : unsigned char { raise, nothing };

  /// Both files are in `folder`, which only this user should be able to access; with an empty one,
  /// nothing is locked. If another instance is the first, this sends it the wish and returns once
  /// it has obeyed or the patience is over: a frozen first instance keeps the lock.
  SingleInstance(const QString& folder, std::function<void()> onRaiseAsked, Wish wish = Wish::raise,
                 std::chrono::milliseconds patience = std::chrono::seconds(1));

  bool isFirst() const { return isFirst_; }

private:
  bool tryToBecomeFirst(Wish wish, std::chrono::milliseconds patience);
  void listen();
  void takeRequests();

  QString socketPath_;
  std::function<void()> onRaiseAsked_;
  QLockFile lock_; // before the server, so that the socket is removed while the lock is held
  QLocalServer server_;
  bool isFirst_;
};

} // namespace tamberline
