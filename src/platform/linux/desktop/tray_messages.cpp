#include "platform/linux/desktop/tray_messages.h"

#include <QDBusMetaType>

namespace tamberline {

QDBusArgument& operator<<(QDBusArgument& out, const TrayPixmap& pixmap) {
  out.beginStructure();
  out << pixmap.width << pixmap.height << pixmap.argb;
  out.endStructure();
  return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayPixmap& pixmap) {
  in.beginStructure();
  in >> pixmap.width >> pixmap.height >> pixmap.argb;
  in.endStructure();
  return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const TrayToolTip& toolTip) {
  out.beginStructure();
  out << toolTip.iconName << toolTip.icon << toolTip.title << toolTip.text;
  out.endStructure();
  return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayToolTip& toolTip) {
  in.beginStructure();
  in >> toolTip.iconName >> toolTip.icon >> toolTip.title >> toolTip.text;
  in.endStructure();
  return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const TrayMenuItem& item) {
  out.beginStructure();
  out << item.id << item.properties;
  out.endStructure();
  return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayMenuItem& item) {
  in.beginStructure();
  in >> item.id >> item.properties;
  in.endStructure();
  return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const TrayMenuLayout& layout) {
  out.beginStructure();
  out << layout.id << layout.properties << layout.children;
  out.endStructure();
  return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayMenuLayout& layout) {
  in.beginStructure();
  in >> layout.id >> layout.properties >> layout.children;
  in.endStructure();
  return in;
}

QDBusArgument& operator<<(QDBusArgument& out, const TrayMenuEvent& event) {
  out.beginStructure();
  out << event.id << event.name << event.data << event.timestamp;
  out.endStructure();
  return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayMenuEvent& event) {
  in.beginStructure();
  in >> event.id >> event.name >> event.data >> event.timestamp;
  in.endStructure();
  return in;
}

void registerTrayMessages() {
  qDBusRegisterMetaType<TrayPixmap>();
  qDBusRegisterMetaType<TrayPixmaps>();
  qDBusRegisterMetaType<TrayToolTip>();
  qDBusRegisterMetaType<TrayMenuItem>();
  qDBusRegisterMetaType<TrayMenuItems>();
  qDBusRegisterMetaType<TrayMenuLayout>();
  qDBusRegisterMetaType<TrayMenuEvent>();
  qDBusRegisterMetaType<TrayMenuEvents>();
}

} // namespace tamberline
