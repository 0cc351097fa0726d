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

  /// The answer to a call, which may be an error. Waits as long as it takes; the system may ask the
  /// person for a password meanwhile.
  QDBusMessage call(QDBusMessage message) const;

private:
  QDBusConnection connection_;
};

} // namespace tamberline
