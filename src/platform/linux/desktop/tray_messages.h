// The values that a tray's host and an item exchange on the session bus, in the format of the
// protocols org.kde.StatusNotifierItem and com.canonical.dbusmenu.
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QString>
#include <QVariantMap>

namespace tamberline {

struct TrayPixmap {
  int width = 0;
  int height = 0;
  QByteArray argb; // 32 bits for each pixel in network byte order
};
using TrayPixmaps = QList<TrayPixmap>;

struct TrayToolTip {
  QString iconName;
  TrayPixmaps icon;
  QString title;
  QString text;
};

struct TrayMenuItem {
  int id = 0;
  QVariantMap properties;
};
using TrayMenuItems = QList<TrayMenuItem>;

struct TrayMenuLayout {
  int id = 0;
  QVariantMap properties;
  QList<QDBusVariant> children; // each a TrayMenuLayout
};

struct TrayMenuEvent {
  int id = 0;
  QString name;
  QDBusVariant data;
  uint timestamp = 0;
};
using TrayMenuEvents = QList<TrayMenuEvent>;

QDBusArgument& operator<<(QDBusArgument& out, const TrayPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& in, TrayPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& out, const TrayToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& in, TrayToolTip& toolTip);
QDBusArgument& operator<<(QDBusArgument& out, const TrayMenuItem& item);
const QDBusArgument& operator>>(const QDBusArgument& in, TrayMenuItem& item);
QDBusArgument& operator<<(QDBusArgument& out, const TrayMenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& in, TrayMenuLayout& layout);
QDBusArgument& operator<<(QDBusArgument& out, const TrayMenuEvent& event);
const QDBusArgument& operator>>(const QDBusArgument& in, TrayMenuEvent& event);

/// Registers all of these types with the D-Bus library. Call it before the first is sent; further
/// calls do no harm.
void registerTrayMessages();

} // namespace tamberline

Q_DECLARE_METATYPE(tamberline::TrayPixmap)
Q_DECLARE_METATYPE(tamberline::TrayToolTip)
Q_DECLARE_METATYPE(tamberline::TrayMenuItem)
Q_DECLARE_METATYPE(tamberline::TrayMenuLayout)
Q_DECLARE_METATYPE(tamberline::TrayMenuEvent)
