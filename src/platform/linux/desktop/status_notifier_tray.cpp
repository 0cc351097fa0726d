#include "platform/linux/desktop/status_notifier_tray.h"

#include "platform/linux/desktop/tray_menu.h"

#include <QCursor>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>
#include <QUuid>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr QLatin1String watcherService("org.kde.StatusNotifierWatcher");
constexpr QLatin1String watcherPath("/StatusNotifierWatcher");
constexpr QLatin1String itemPath("/StatusNotifierItem");
constexpr QLatin1String menuPath("/TrayMenu");

/// The program blocks on the bus only at startup, when it must know what kind of window to open.
constexpr std::chrono::milliseconds startTimeout{500};

QDBusMessage callOfWatcher(const QString& interface, const QString& method) {
  QDBusMessage call =
      QDBusMessage::createMethodCall(watcherService, watcherPath, interface, method);
  call.setAutoStartService(false);
  return call;
}

/// Asks whether a host shows the items that the watcher has registered.
QDBusMessage hostQuestion() {
  QDBusMessage question =
      callOfWatcher(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  question << QString(watcherService) << QStringLiteral("IsStatusNotifierHostRegistered");
  return question;
}

bool reportsHost(const QDBusMessage& answer) {
  return answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty() &&
         answer.arguments().constFirst().value<QDBusVariant>().variant().toBool();
}

/// Hosts look the name up in their themes. If the program is not installed, they have only its
/// drawing.
QString nameIfInstalled(const QString& iconName) {
  const QString file = QStringLiteral("icons/hicolor/symbolic/apps/%1.svg").arg(iconName);
  return QStandardPaths::locate(QStandardPaths::GenericDataLocation, file).isEmpty() ? QString()
                                                                                     : iconName;
}

/// Hosts on X11 report pixels, which Qt scales relative to the upper left corner of each screen.
std::optional<QPoint> inPoints(std::optional<QPoint> place) {
  if (!place || QGuiApplication::platformName() != QLatin1String("xcb")) {
    return place;
  }
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QPoint corner = screen->geometry().topLeft();
    const double ratio = screen->devicePixelRatio();
    if (QRect(corner, screen->size() * ratio).contains(*place)) {
      return corner + (*place - corner) / ratio;
    }
  }
  return place;
}

/// The position of the cursor, which is near the icon while the user chooses from its menu.
/// Unavailable on Wayland.
std::optional<QPoint> cursor() {
  return QGuiApplication::platformName() == QLatin1String("xcb") ? std::optional(QCursor::pos())
                                                                 : std::nullopt;
}

} // namespace

StatusNotifierTray::StatusNotifierTray(Hooks hooks)
    : hooks_(std::move(hooks)),
      bus_(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                         QUuid::createUuid().toString(QUuid::WithoutBraces))),
      watcherOwner_(watcherService, bus_) {
  if (!bus_.isConnected()) {
    return;
  }
  followWatcher();
  const QDBusMessage answer =
      bus_.call(hostQuestion(), QDBus::Block, static_cast<int>(startTimeout.count()));
  isAvailable_ = reportsHost(answer);
  const auto noReply = QDBusError::errorString(QDBusError::NoReply);
  isUndecided_ = answer.errorName() == noReply;
  if (isUndecided_) {
    askForHost();
  }
}

StatusNotifierTray::~StatusNotifierTray() {
  QDBusConnection::disconnectFromBus(bus_.name());
}

void StatusNotifierTray::show(Look look, Events events) {
  look_ = std::move(look);
  events_ = std::move(events);
  if (bus_.isConnected()) {
    exportItem();
    registerItem();
  }
}

void StatusNotifierTray::redraw() {
  if (item_) {
    item_->setIcon(look_.icon(BarTone::unknown));
  }
}

void StatusNotifierTray::askForHost() {
  auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(hostQuestion()), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
    setAvailable(reportsHost(answer->reply()));
    answer->deleteLater();
  });
}

void StatusNotifierTray::followWatcher() {
  connect(&watcherOwner_, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this](const QString& /*service*/, const QString& /*oldOwner*/, const QString& newOwner) {
            if (newOwner.isEmpty()) {
              setAvailable(false);
            } else {
              registerItem();
              askForHost();
            }
          });
  for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"}) {
    bus_.connect(watcherService, watcherPath, watcherService, QString::fromLatin1(signal), this,
                 SLOT(askForHost()));
  }
}

void StatusNotifierTray::exportItem() {
  menu_ = std::make_unique<TrayMenu>(
      MenuEntries{{look_.openText, [this] { events_.openChosen({.click = cursor()}); }},
                  {look_.quitText, [this] { events_.quitChosen(); }}});
  item_ = std::make_unique<StatusNotifierItem>(
      StatusNotifierItem::Content{.title = look_.title,
                                  .iconName = nameIfInstalled(look_.iconName),
                                  .icon = look_.icon(BarTone::unknown),
                                  .menu = QDBusObjectPath(QString(menuPath))},
      StatusNotifierItem::Events{
          .activated =
              [this](std::optional<QPoint> place) { events_.clicked({.click = inPoints(place)}); },
          .menuWanted =
              [this](std::optional<QPoint> place) { hooks_.menuWanted(inPoints(place)); }});
  constexpr auto everything = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals |
                              QDBusConnection::ExportAllProperties;
  bus_.registerObject(menuPath, menu_.get(), everything);
  bus_.registerObject(itemPath, item_.get(), everything);
}

/// Also called when the watcher changes, because a new one has no items.
void StatusNotifierTray::registerItem() {
  if (item_) {
    QDBusMessage call = callOfWatcher(watcherService, QStringLiteral("RegisterStatusNotifierItem"));
    call << bus_.baseService();
    bus_.asyncCall(call);
  }
}

void StatusNotifierTray::setAvailable(bool isAvailable) {
  const bool wasUndecided = std::exchange(isUndecided_, false);
  if (isAvailable != isAvailable_ || wasUndecided) {
    isAvailable_ = isAvailable;
    hooks_.availabilityChanged();
  }
}

} // namespace tamberline
