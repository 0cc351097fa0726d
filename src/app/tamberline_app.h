#pragma once

#include "app/manual_window.h"
#include "app/panel_shell.h"
#include "app/tray_icon.h"
#include "scanner/port_scanner.h"

#include <memory>

namespace tamberline {

/// The application: the one scanner, the panel that shows it, and the icon that opens the panel. An
/// ordinary small window where there is no tray. Main thread only.
class TamberlineApp {
public:
  TamberlineApp(const ScannerOutside& outside, std::shared_ptr<MainQueue> queue,
                TrayIcon::MenuOpener trayMenuOpener = TrayIcon::MenuOpener::tray);
  TamberlineApp(const TamberlineApp&) = delete;
  TamberlineApp& operator=(const TamberlineApp&) = delete;

  /// Takes everything off the screen and waits until no volume is being tested any more; each test
  /// ends with the chunk that it is at, and its file goes.
  ~TamberlineApp();

  /// Puts the icon into the tray or, without one, opens the panel.
  void start();

  /// Another start of the program asked for the panel.
  void raise() { shell_.open(); }

private:
  PanelActions actions(const ScannerOutside& outside);
  void installTrayIcon();

  bool hasTray_;
  TrayIcon::MenuOpener trayMenuOpener_;
  std::shared_ptr<Benchmark> benchmark_; // may be null
  ManualWindow manual_;
  std::shared_ptr<PortScanner> scanner_;
  PanelShell shell_;
  std::unique_ptr<TrayIcon> trayIcon_;
};

} // namespace tamberline
