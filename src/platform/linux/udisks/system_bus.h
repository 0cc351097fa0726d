#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

namespace tamberline {

/// A separate connection to the system bus, closed on destruction. For use by one thread, which
/// needs no event loop.
class SystemBus {
public:
  SystemBus();
  SystemBus(const SystemBus&) = delete;
  SystemBus& operator=(const SystemBus&) = delete;
  ~SystemBus();

  bool isConnected() const { return connection_.isConnected(); }
  /// The bus's error message if there is no connection.
  QString error() const { return connection_.lastError().message(); }

  /// The answer to a query, which may be an error. It is an error after 25 seconds without an
  /// answer, because a working service answers sooner.
  QDBusMessage callForAnswer(const QDBusMessage& message) const;

  /// The answer to a call that changes something, which may be an error. There is no time limit: a
  /// slow drive may have much to write, and the system may ask the user for a password.
  QDBusMessage callForAction(QDBusMessage message) const;

private:
  QDBusConnection connection_;
};

} // namespace tamberline
