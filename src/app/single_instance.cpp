#include "app/single_instance.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>

#include <algorithm>
#include <memory>
#include <utility>

namespace tamberline {
namespace {

/// Between attempts to reach the first instance, which may be starting or ending.
constexpr std::chrono::milliseconds retryInterval{20};

int remainingMilliseconds(const QDeadlineTimer& deadline) {
  return static_cast<int>(std::max<qint64>(deadline.remainingTime(), 1));
}

/// Whether another instance is listening; it answers by closing the connection.
bool requestRaise(const QString& socketPath, const QDeadlineTimer& deadline) {
  QLocalSocket socket;
  socket.connectToServer(socketPath);
  if (!socket.waitForConnected(remainingMilliseconds(deadline))) {
    return false;
  }
  socket.waitForDisconnected(remainingMilliseconds(deadline));
  return true;
}

/// Whether something at the path can never be locked: a folder, a link, or a pipe, on which opening
/// the lock would block.
bool cannotBeLocked(const QString& path) {
  const QFileInfo info(path);
  return info.isSymLink() || (info.exists() && !info.isFile());
}

/// Empty without a folder: we write nothing to the current folder.
QString fileIn(const QString& folder, const QString& name) {
  return folder.isEmpty() ? QString() : QDir(folder).filePath(name);
}

} // namespace

SingleInstance::SingleInstance(const QString& folder, std::function<void()> onRaiseAsked, Wish wish,
                               std::chrono::milliseconds patience)
    : socketPath_(fileIn(folder, QStringLiteral("tamberline.socket"))),
      onRaiseAsked_(std::move(onRaiseAsked)),
      lock_(fileIn(folder, QStringLiteral("tamberline.lock"))),
      isFirst_(tryToBecomeFirst(wish, patience)) {
  if (lock_.isLocked()) {
    listen();
  }
}

bool SingleInstance::tryToBecomeFirst(Wish wish, std::chrono::milliseconds patience) {
  if (socketPath_.isEmpty() || cannotBeLocked(lock_.fileName())) {
    return true;
  }
  lock_.setStaleLockTime(0); // never by age, because the panel runs for weeks
  const QDeadlineTimer deadline(patience);
  do {
    if (lock_.tryLock(static_cast<int>(retryInterval.count()))) {
      return true;
    }
    if (lock_.error() != QLockFile::LockFailedError) {
      return true;
    }
    if (wish == Wish::nothing) {
      break;
    }
    if (requestRaise(socketPath_, deadline)) {
      return false;
    }
  } while (!deadline.hasExpired());
  // A crash can leave a lock file whose owner cannot be determined, for example because of an old
  // host name. A running first instance holds a system lock on the file, so it cannot be removed.
  return lock_.removeStaleLockFile() && lock_.tryLock();
}

void SingleInstance::listen() {
  QLocalServer::removeServer(socketPath_);
  server_.setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { takeRequests(); });
  server_.listen(socketPath_);
}

void SingleInstance::takeRequests() {
  while (const std::unique_ptr<QLocalSocket> request{server_.nextPendingConnection()}) {
    request->abort();
  }
  onRaiseAsked_();
}

} // namespace tamberline
