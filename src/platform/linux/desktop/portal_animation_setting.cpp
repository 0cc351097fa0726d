#include "platform/linux/desktop/portal_animation_setting.h"

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace tamberline {
namespace {

constexpr const char* portalService = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalSettings = "org.freedesktop.portal.Settings";
constexpr const char* gnomeGroup = "org.gnome.desktop.interface";
constexpr const char* gnomeKey = "enable-animations";
constexpr const char* plasmaGroup = "org.kde.kdeglobals.KDE";
constexpr const char* plasmaKey = "AnimationDurationFactor";

/// Does not start the portal: if the session has none by now, it does not need one.
QDBusMessage readAllSettings() {
  QDBusMessage call =
      QDBusMessage::createMethodCall(portalService, portalPath, portalSettings, "ReadAll");
  call.setAutoStartService(false);
  call << QStringList{gnomeGroup, plasmaGroup};
  return call;
}

} // namespace

bool allowsAnimation(const PortalSettings& settings) {
  const QVariant gnome = settings.value(gnomeGroup).value(gnomeKey);
  const QVariant plasma = settings.value(plasmaGroup).value(plasmaKey);
  bool isNumber = false;
  const double factor = plasma.toDouble(&isNumber);
  const bool isForbiddenByGnome = gnome.typeId() == QMetaType::Bool && !gnome.toBool();
  const bool isForbiddenByPlasma = isNumber && factor <= 0;
  return !isForbiddenByGnome && !isForbiddenByPlasma;
}

void PortalAnimationSetting::follow(std::function<void(bool isAllowed)> report) {
  report_ = std::move(report);
  qDBusRegisterMetaType<PortalSettings>();
  bus_.connect(portalService, portalPath, portalSettings, "SettingChanged", this,
               SLOT(settingChanged(QString, QString, QDBusVariant)));
  auto* const watcher = new QDBusPendingCallWatcher(bus_.asyncCall(readAllSettings()), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    const QDBusPendingReply<PortalSettings> reply = *watcher;
    take(reply.isError() ? PortalSettings() : reply.value());
    watcher->deleteLater();
  });
}

void PortalAnimationSetting::settingChanged(const QString& group, const QString& key,
                                            const QDBusVariant& value) {
  PortalSettings settings = settings_;
  settings[group][key] = value.variant();
  take(settings);
}

void PortalAnimationSetting::take(const PortalSettings& settings) {
  settings_ = settings;
  report_(allowsAnimation(settings));
}

} // namespace tamberline
