#pragma once

#include "desktop/animation_setting.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <utility>

namespace tamberline {

/// The settings of the desktop by group.
using PortalSettings = QMap<QString, QVariantMap>;

/// False if GNOME's or Plasma's setting forbids animation.
bool allowsAnimation(const PortalSettings& settings);

/// Asks the desktop portal. Without one, nobody has forbidden animation.
class PortalAnimationSetting final : public QObject, public AnimationSetting {
  Q_OBJECT

public:
  explicit PortalAnimationSetting(QDBusConnection bus) : bus_(std::move(bus)) {}

  void follow(std::function<void(bool isAllowed)> report) override;

private:
  Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);
  void take(const PortalSettings& settings);

  QDBusConnection bus_;
  PortalSettings settings_;
  std::function<void(bool isAllowed)> report_;
};

} // namespace tamberline
