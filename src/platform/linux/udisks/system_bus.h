#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

namespace tamberline {

/// A connection of its own to the system bus, closed when it goes. Used by one thread, which needs
/// no event loop.
class SystemBus {
public:
  SystemBus();
  SystemBus(const SystemBus&) = delete;
  SystemBus& operator=(const SystemBus&) = delete;
  ~SystemBus();

  bool isConnected() const { return connection_.isConnected(); }
  /// Why it is not connected, in the words of the bus.
  QString error() const { return connection_.lastError().message(); }

  /// The answer to a question, which may be an error; also when there is none after 25 seconds, by
  /// which a service that lives has answered.
  QDBusMessage callForAnswer(const QDBusMessage& message) const;

  /// The answer to a call that does something, which may be an error. Waits as long as it takes: a
  /// slow drive may have much to write, and the system may ask the person for a password meanwhile.
  QDBusMessage callForAction(QDBusMessage message) const;

private:
  QDBusConnection connection_;
};

} // namespace tamberline
