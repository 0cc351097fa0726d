#pragma once

#include "platform/linux/desktop/menu_entry.h"
#include "platform/linux/desktop/tray_messages.h"

#include <QObject>
#include <QStringList>

namespace tamberline {

/// The icon's menu, exported on the bus for hosts that draw it themselves: one level of entries
/// that never change.
class TrayMenu : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
  Q_PROPERTY(uint Version READ version)
  Q_PROPERTY(QString TextDirection READ textDirection)
  Q_PROPERTY(QString Status READ status)
  Q_PROPERTY(QStringList IconThemePath READ iconThemePath)

public:
  explicit TrayMenu(MenuEntries entries, QObject* parent = nullptr);

  static uint version() { return 3; }
  static QString textDirection() { return QStringLiteral("ltr"); }
  static QString status() { return QStringLiteral("normal"); }
  static QStringList iconThemePath() { return {}; }

public slots: // NOLINT(readability-redundant-access-specifiers): the bus library reads it
  // NOLINTBEGIN(readability-identifier-naming): the protocol gives the names
  uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
                 tamberline::TrayMenuLayout& layout) const;
  tamberline::TrayMenuItems GetGroupProperties(const QList<int>& ids,
                                               const QStringList& propertyNames) const;
  QDBusVariant GetProperty(int id, const QString& name) const;
  void Event(int id, const QString& name, const QDBusVariant& data, uint timestamp);
  QList<int> EventGroup(const QList<tamberline::TrayMenuEvent>& events);
  bool AboutToShow(int id) const;
  QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors) const;
  // NOLINTEND(readability-identifier-naming)

signals:
  // NOLINTBEGIN(readability-identifier-naming): the protocol gives the names
  void LayoutUpdated(uint revision, int parent);
  void ItemActivationRequested(int id, uint timestamp);
  // NOLINTEND(readability-identifier-naming)

private:
  bool isEntry(int id) const;
  QVariantMap properties(int id) const;

  MenuEntries entries_; // identifiers 1, 2 and so on; 0 is the menu
};

} // namespace tamberline
