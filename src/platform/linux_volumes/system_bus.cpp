#include "platform/linux_volumes/system_bus.h"

#include <QDBusError>

#include <atomic>
#include <limits>

namespace tamberline {
namespace {

/// Connections of one name are one connection.
QString unusedName() {
  static std::atomic<unsigned> count = 0;
  return QStringLiteral("tamberline-system-bus-%1").arg(++count);
}

constexpr int withoutTimeLimit = std::numeric_limits<int>::max();

} // namespace

SystemBus::SystemBus()
    : connection_(QDBusConnection::connectToBus(QDBusConnection::SystemBus, unusedName())) {}

SystemBus::~SystemBus() {
  QDBusConnection::disconnectFromBus(connection_.name());
}

QDBusMessage SystemBus::call(QDBusMessage message) const {
  message.setInteractiveAuthorizationAllowed(true);
  return connection_.call(message, QDBus::Block, withoutTimeLimit);
}

} // namespace tamberline
