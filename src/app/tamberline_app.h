#pragma once

#include "app/manual_window.h"
#include "app/panel_shell.h"
#include "scanner/port_scanner.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <memory>

namespace tamberline {

/// The application: the one scanner, the panel that shows it, and the icon that opens the panel. An
/// ordinary small window where there is no tray. Main thread only.
class TamberlineApp {
public:
  TamberlineApp(ScannerOutside outside, std::shared_ptr<MainQueue> queue);

  /// Puts the icon into the tray or, without one, opens the panel.
  void start();

  /// Another start of the program asked for the panel.
  void raise() { shell_.open(); }

private:
  PanelActions actions();
  void installTrayIcon();

  bool hasTray_;
  std::shared_ptr<PortScanner> scanner_;
  ManualWindow manual_;
  PanelShell shell_;
  std::unique_ptr<QMenu> menu_;
  std::unique_ptr<QSystemTrayIcon> icon_;
};

} // namespace tamberline
