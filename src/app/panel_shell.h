#pragma once

#include "app/panel_frame.h"
#include "app/window_manager.h"
#include "desktop/tray.h"
#include "desktop/window_places.h"
#include "panel/panel_context.h"
#include "panel/panel_window.h"

#include <QObject>
#include <QPoint>
#include <QRect>
#include <QScreen>

#include <functional>
#include <memory>
#include <optional>

namespace tamberline {

/// The panel as a window on the desktop, created when it is first opened and then kept: its
/// position, its height, and when it closes. Main thread only.
class PanelShell {
public:
  struct Placement {
    /// Called each time the panel opens, because a tray may have started or stopped.
    std::function<PanelWindow::Kind()> kind = [] { return PanelWindow::Kind::ordinary; };
    std::shared_ptr<WindowPlaces> places = std::make_shared<FreeWindowPlaces>();
    PanelWindowFrame::FreePlace freePlace = [](const QScreen& screen) {
      return screen.availableGeometry();
    };
    /// False if the panel may become as high as without a screen, for pictures of it.
    bool isBoundByScreen = true;
  };

  PanelShell(PanelContext::Outside outside, Placement placement);
  PanelShell(const PanelShell&) = delete;
  PanelShell& operator=(const PanelShell&) = delete;
  ~PanelShell();

  /// Shows the panel beside its icon, or brings it to the front. The first call starts a scan.
  void open(const TrayPlace& place = {});

  /// Handles a click on the tray icon. If the click already closed the panel by taking its keyboard
  /// focus, it does not open the panel again.
  void toggle(const TrayPlace& place = {});

  void close();
  bool isOpen() const;

  PanelContext& context() { return context_; }
  /// Null until the panel has been opened.
  PanelWindow* window() { return window_.get(); }

private:
  /// Where the icon of an attached panel was when the panel opened.
  struct Anchor {
    QRect icon;
    std::optional<QPoint> click; // the last click on the icon; absent if the tray reports none
  };

  void prepare(const TrayPlace& place);
  PanelWindow::Style wantedStyle() const;
  void make(PanelWindow::Style style);
  void colorNewAreas();
  void followContent();
  void followWindow();
  void followScreen(QScreen* screen);
  void fitScreen();
  void stayOnScreen();
  void place();
  QScreen* screenOfAnchor() const;
  void holdInCorner();
  void closeWhenLeft();
  void leave();
  bool isAttached() const { return style_.kind == PanelWindow::Kind::attached; }
  bool isHeightFixed() const;

  PanelContext context_;
  Placement placement_;
  Anchor anchor_;
  std::shared_ptr<MainQueue> queue_;
  PanelWindow::Style style_;         // of the current window
  std::unique_ptr<WindowHold> hold_; // what the desktop does for the open window; may be null
  std::unique_ptr<PanelWindow> window_;
  std::unique_ptr<PanelWindowFrame> frame_;
  std::optional<WindowManager> manager_;
  QMetaObject::Connection barsOfScreen_; // of the window's screen
  MainQueue::WorkItem pendingClosingClick_ =
      0; // set while the click that closed the panel may arrive
};

} // namespace tamberline
