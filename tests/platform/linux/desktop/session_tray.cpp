#include "platform/linux/desktop/session_tray.h"

#include "support/event_loop.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QUuid>

namespace tamberline {
namespace {

constexpr QLatin1String service("org.kde.StatusNotifierWatcher");

} // namespace

SessionTray::SessionTray(bool hasHost, Entrance entrance)
    : bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QUuid::createUuid().toString())),
      hasHost_(hasHost) {
  bus_.registerObject(QStringLiteral("/StatusNotifierWatcher"), this,
                      QDBusConnection::ExportAllContents);
  bus_.interface()->registerService(service,
                                    entrance == Entrance::replacing
                                        ? QDBusConnectionInterface::ReplaceExistingService
                                        : QDBusConnectionInterface::DontQueueService,
                                    QDBusConnectionInterface::AllowReplacement);
}

SessionTray::~SessionTray() {
  QDBusConnection::disconnectFromBus(bus_.name());
}

void SessionTray::setHost(bool hasHost) {
  hasHost_ = hasHost;
  if (hasHost) {
    emit StatusNotifierHostRegistered();
  } else {
    emit StatusNotifierHostUnregistered();
  }
}

QVariant SessionTray::property(const QString& name) {
  const QDBusMessage answer =
      call(QStringLiteral("/StatusNotifierItem"), QStringLiteral("org.freedesktop.DBus.Properties"),
           QStringLiteral("Get"), {QStringLiteral("org.kde.StatusNotifierItem"), name});
  return answer.arguments().isEmpty()
             ? QVariant()
             : answer.arguments().constFirst().value<QDBusVariant>().variant();
}

QDBusMessage SessionTray::callItem(const QString& method, const QVariantList& arguments) {
  return call(QStringLiteral("/StatusNotifierItem"), QStringLiteral("org.kde.StatusNotifierItem"),
              method, arguments);
}

QDBusMessage SessionTray::callMenu(const QString& method, const QVariantList& arguments) {
  return call(QStringLiteral("/TrayMenu"), QStringLiteral("com.canonical.dbusmenu"), method,
              arguments);
}

/// The item answers in the same event loop, which must run meanwhile.
QDBusMessage SessionTray::call(const QString& path, const QString& interface, const QString& method,
                               const QVariantList& arguments) {
  QDBusMessage message = QDBusMessage::createMethodCall(
      items_.isEmpty() ? QString() : items_.constLast(), path, interface, method);
  message.setArguments(arguments);
  const QDBusPendingCall pending = bus_.asyncCall(message);
  runEventsUntil([&pending] { return pending.isFinished(); });
  return pending.reply();
}

} // namespace tamberline
