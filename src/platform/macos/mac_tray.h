#pragma once

#include "desktop/qt_tray.h"
#include "platform/macos/native_application.h"

#include <optional>

namespace tamberline {

/// The icon in the menu bar. Opening the application again opens the panel too: the system may have
/// no room for the icon, and it starts no second process that could ask for the panel. Main thread
/// only.
class MacTray final : public Tray {
public:
  void show(Look look, Events events) override;
  bool isAvailable() const override { return tray_.isAvailable(); }
  QRect iconGeometry() const override { return tray_.iconGeometry(); }
  void redraw() override { tray_.redraw(); }

  QSystemTrayIcon& icon() { return tray_.icon(); }

private:
  /// The program opens the menu: if the menu bar had it, every click would open it and none would
  /// open the panel.
  QtTray tray_{QtTray::MenuOpener::program};
  std::optional<ReopenRequests> reopenRequests_; // once the event loop runs
};

} // namespace tamberline
