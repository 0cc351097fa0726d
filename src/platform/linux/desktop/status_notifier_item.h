#pragma once

#include "platform/linux/desktop/tray_messages.h"

#include <QDBusObjectPath>
#include <QIcon>
#include <QObject>
#include <QPoint>

#include <functional>

namespace tamberline {

/// The icon, exported on the bus for the tray's host.
class StatusNotifierItem : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
  Q_PROPERTY(QString Category READ category)
  Q_PROPERTY(QString Id READ id)
  Q_PROPERTY(QString Title READ title)
  Q_PROPERTY(QString Status READ status)
  Q_PROPERTY(int WindowId READ windowId)
  Q_PROPERTY(QString IconName READ iconName)
  Q_PROPERTY(tamberline::TrayPixmaps IconPixmap READ iconPixmap)
  Q_PROPERTY(tamberline::TrayToolTip ToolTip READ toolTip)
  Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
  Q_PROPERTY(QDBusObjectPath Menu READ menu)

public:
  struct Content {
    QString title;
    QString iconName; // empty if no theme has it
    QIcon icon;       // for hosts that do not find the name
    QDBusObjectPath menu;
  };

  /// Both get the position on the desktop; absent if the host does not report it.
  struct Events {
    std::function<void(std::optional<QPoint>)> activated;
    std::function<void(std::optional<QPoint>)> menuWanted; // by a host that does not draw it itself
  };

  StatusNotifierItem(Content content, Events events, QObject* parent = nullptr);

  void setIcon(const QIcon& icon);

  static QString category() { return QStringLiteral("Hardware"); }
  static QString id() { return QStringLiteral("tamberline"); }
  QString title() const { return content_.title; }
  static QString status() { return QStringLiteral("Active"); }
  static int windowId() { return 0; }
  QString iconName() const { return content_.iconName; }
  TrayPixmaps iconPixmap() const;
  TrayToolTip toolTip() const { return {{}, {}, content_.title, {}}; }
  static bool itemIsMenu() { return false; }
  QDBusObjectPath menu() const { return content_.menu; }

public slots: // NOLINT(readability-redundant-access-specifiers): the bus library reads it
  // NOLINTBEGIN(readability-identifier-naming): the protocol gives the names
  void Activate(int x, int y) const;
  void SecondaryActivate(int x, int y) const;
  void ContextMenu(int x, int y) const;
  void Scroll(int delta, const QString& orientation) const;
  void ProvideXdgActivationToken(const QString& token) const;
  // NOLINTEND(readability-identifier-naming)

signals:
  // NOLINTBEGIN(readability-identifier-naming): the protocol gives the names
  void NewIcon();
  void NewTitle();
  void NewToolTip();
  void NewStatus(const QString& status);
  // NOLINTEND(readability-identifier-naming)

private:
  Content content_;
  Events events_;
};

} // namespace tamberline
