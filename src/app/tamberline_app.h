#pragma once

#include "app/manual_window.h"
#include "app/panel_shell.h"
#include "desktop/tray.h"
#include "desktop/window_places.h"
#include "scanner/port_scanner.h"

#include <memory>

namespace tamberline {

/// The application: the one scanner, the panel that shows it, and the icon that opens the panel. An
/// ordinary small window where there is no tray. Main thread only.
class TamberlineApp {
public:
  /// What of the desktop the application uses. The tray may be null.
  struct Desktop {
    std::unique_ptr<Tray> tray;
    std::shared_ptr<WindowPlaces> places = std::make_shared<FreeWindowPlaces>();
  };

  enum class StartedBy : unsigned char {
    person,  // who wants to see the panel
    session, // which wants the icon only
  };

  TamberlineApp(const ScannerOutside& outside, std::shared_ptr<MainQueue> queue, Desktop desktop);
  TamberlineApp(const TamberlineApp&) = delete;
  TamberlineApp& operator=(const TamberlineApp&) = delete;

  /// Takes everything off the screen and waits until no volume is being tested any more; each test
  /// ends with the chunk that it is at, and its file goes.
  ~TamberlineApp();

  /// Puts the icon into the tray and, for a person, opens the panel.
  void start(StartedBy starter = StartedBy::person);

  /// Another start of the program asked for the panel.
  void raise() { shell_.open(placeOfIcon()); }

private:
  PanelActions actions(const ScannerOutside& outside);
  PanelWindow::Kind panelKind() const;
  bool hasTray() const { return tray_ && tray_->isAvailable(); }
  TrayPlace placeOfIcon() const;
  void showIcon();
  void endWithoutIcon() const;

  std::unique_ptr<Tray> tray_; // may be null
  std::shared_ptr<WindowPlaces> places_;
  std::shared_ptr<Benchmark> benchmark_; // may be null
  ManualWindow manual_;
  std::shared_ptr<PortScanner> scanner_;
  PanelShell shell_;
};

} // namespace tamberline
