#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariant>

namespace tamberline {

/// A desktop's tray on the session bus, with a separate connection: it keeps the list of items, and
/// is a host that shows them.
class SessionTray : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)

public:
  /// How it takes the watcher's name: if the name is free, or by replacing the owner.
  enum class Entrance : unsigned char { free, replacing };

  explicit SessionTray(bool hasHost = true, Entrance entrance = Entrance::free);
  ~SessionTray() override;

  bool hasHost() const { return hasHost_; }
  void setHost(bool hasHost);

  /// The bus names of the items that asked to be shown, in order.
  const QStringList& items() const { return items_; }

  /// A property of the last item.
  QVariant property(const QString& name);

  /// Calls the last item, or its menu, and waits for the answer.
  QDBusMessage callItem(const QString& method, const QVariantList& arguments);
  QDBusMessage callMenu(const QString& method, const QVariantList& arguments);

public slots: // NOLINT(readability-redundant-access-specifiers): the bus library reads it
  // NOLINTNEXTLINE(readability-identifier-naming): the protocol gives the name
  void RegisterStatusNotifierItem(const QString& service) { items_.append(service); }

signals:
  // NOLINTBEGIN(readability-identifier-naming): the protocol gives the names
  void StatusNotifierHostRegistered();
  void StatusNotifierHostUnregistered();
  // NOLINTEND(readability-identifier-naming)

private:
  QDBusMessage call(const QString& path, const QString& interface, const QString& method,
                    const QVariantList& arguments);

  QDBusConnection bus_;
  bool hasHost_;
  QStringList items_;
};

} // namespace tamberline
