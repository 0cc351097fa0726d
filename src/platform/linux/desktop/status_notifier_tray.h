#pragma once

#include "desktop/tray.h"
#include "platform/linux/desktop/status_notifier_item.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>

#include <functional>
#include <memory>

namespace tamberline {

/// The tray that desktops provide on the session bus. It tracks when the tray appears and
/// disappears. Qt's own implementation looks for the tray only once, does not pass on the position
/// of a click and sends no icon name. Main thread only.
class StatusNotifierTray final : public QObject, public Tray {
  Q_OBJECT

public:
  struct Hooks {
    std::function<void()> availabilityChanged = [] {};
    /// The host wants the program to draw the menu.
    std::function<void(std::optional<QPoint>)> menuWanted = [](std::optional<QPoint>) {};
  };

  explicit StatusNotifierTray(Hooks hooks);
  StatusNotifierTray(const StatusNotifierTray&) = delete;
  StatusNotifierTray& operator=(const StatusNotifierTray&) = delete;
  ~StatusNotifierTray() override;

  void show(Look look, Events events) override;
  bool isAvailable() const override { return isAvailable_; }
  /// Whether the desktop has not answered yet whether it has a tray. Once it has,
  /// `availabilityChanged` is called.
  bool isUndecided() const { return isUndecided_; }
  QRect iconGeometry() const override { return {}; } // hosts do not report it
  void redraw() override;

private slots: // NOLINT(readability-redundant-access-specifiers): the bus library reads it
  void askForHost();

private: // NOLINT(readability-redundant-access-specifiers): no more slots
  void followWatcher();
  void exportItem();
  void registerItem();
  void setAvailable(bool isAvailable);

  Hooks hooks_;
  Look look_;
  Events events_;
  QDBusConnection bus_;
  QDBusServiceWatcher watcherOwner_;
  std::unique_ptr<StatusNotifierItem> item_; // null until shown
  std::unique_ptr<QObject> menu_;            // null until shown
  bool isAvailable_ = false;
  bool isUndecided_ = false;
};

} // namespace tamberline
