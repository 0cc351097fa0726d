#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QString>

#include <chrono>
#include <functional>

namespace tamberline {

/// Lets one start of the program run and tells it when there is another one. A connection to the
/// socket of the first is the whole message: nothing that comes through it is read.
///
/// What a crash left behind does not count. Where nothing can be locked, every start is a first
/// that hears of no other. Main thread only; needs an application object.
class SingleInstance {
public:
  /// What a start asks of the one that is there already.
  enum class Wish : unsigned char { raise, nothing };

  /// Both files are in `folder`, which should belong to this person alone; with an empty one
  /// nothing is locked. When another start is the first, tells it of the wish and returns once it
  /// did it or the patience is at an end: a first that is frozen keeps its place.
  SingleInstance(const QString& folder, std::function<void()> onRaiseAsked, Wish wish = Wish::raise,
                 std::chrono::milliseconds patience = std::chrono::seconds(1));

  bool isFirst() const { return isFirst_; }

private:
  bool becomeFirst(Wish wish, std::chrono::milliseconds patience);
  void listen();
  void takeRequests();

  QString socketPath_;
  std::function<void()> onRaiseAsked_;
  QLockFile lock_; // before the server, whose socket is removed while the lock still holds
  QLocalServer server_;
  bool isFirst_;
};

} // namespace tamberline
