#include "platform/linux/udisks/system_bus.h"

#include <QDBusError>

#include <atomic>
#include <limits>

namespace tamberline {
namespace {

/// Connections with the same name would share one connection.
QString unusedName() {
  static std::atomic<unsigned> count = 0;
  return QStringLiteral("tamberline-system-bus-%1").arg(++count);
}

constexpr int limitOfAnswer = 25'000; // milliseconds
constexpr int withoutTimeLimit = std::numeric_limits<int>::max();

} // namespace

SystemBus::SystemBus()
    : connection_(QDBusConnection::connectToBus(QDBusConnection::SystemBus, unusedName())) {}

SystemBus::~SystemBus() {
  QDBusConnection::disconnectFromBus(connection_.name());
}

QDBusMessage SystemBus::callForAnswer(const QDBusMessage& message) const {
  return connection_.call(message, QDBus::Block, limitOfAnswer);
}

QDBusMessage SystemBus::callForAction(QDBusMessage message) const {
  message.setInteractiveAuthorizationAllowed(true);
  return connection_.call(message, QDBus::Block, withoutTimeLimit);
}

} // namespace tamberline
