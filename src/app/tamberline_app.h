#pragma once

#include "app/manual_window.h"
#include "app/panel_shell.h"
#include "desktop/animation_setting.h"
#include "desktop/tray.h"
#include "desktop/window_places.h"
#include "scanner/port_scanner.h"

#include <memory>

namespace tamberline {

/// The application: the scanner, the panel that shows it, and the icon that opens the panel.
/// Without a tray, the panel is an ordinary small window. Main thread only.
class TamberlineApp {
public:
  /// The parts of the desktop that the application uses. The tray may be null.
  struct Desktop {
    std::unique_ptr<Tray> tray;
    std::shared_ptr<WindowPlaces> places = std::make_shared<FreeWindowPlaces>();
    std::unique_ptr<AnimationSetting> animations = nullptr; // null: rows do not move
  };

  enum class StartedBy : unsigned char {
    person,  // the user, who wants to see the panel
    session, // the session, which only wants the icon
  };

  TamberlineApp(const ScannerServices& outside, std::shared_ptr<MainQueue> queue, Desktop desktop);
  TamberlineApp(const TamberlineApp&) = delete;
  TamberlineApp& operator=(const TamberlineApp&) = delete;

  /// Closes all windows and waits until no volume is being tested: each test ends after its current
  /// chunk and removes its file.
  ~TamberlineApp();

  /// Shows the icon in the tray and, if the user started the program, opens the panel.
  void start(StartedBy starter = StartedBy::person);

  /// Another instance asked for the panel.
  void raise() { shell_.open(placeOfIcon()); }

private:
  PanelActions actions(const ScannerServices& outside);
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
  std::unique_ptr<AnimationSetting> animations_; // may be null
};

} // namespace tamberline
