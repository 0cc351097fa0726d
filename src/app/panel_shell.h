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

/// The panel as a window on the desktop: made when it is first wanted, then kept; where it stands,
/// how high it is, when it goes. Main thread only.
class PanelShell {
public:
  struct Placement {
    /// Asked each time the panel opens: a tray may have come or gone.
    std::function<PanelWindow::Kind()> kind = [] { return PanelWindow::Kind::ordinary; };
    std::shared_ptr<WindowPlaces> places = std::make_shared<FreeWindowPlaces>();
    PanelWindowFrame::FreePlace freePlace = [](const QScreen& screen) {
      return screen.availableGeometry();
    };
    /// False to let the panel become as high as without a screen, for pictures of it.
    bool isBoundByScreen = true;
  };

  PanelShell(PanelContext::Outside outside, Placement placement);
  PanelShell(const PanelShell&) = delete;
  PanelShell& operator=(const PanelShell&) = delete;
  ~PanelShell();

  /// Shows the panel beside its icon, or brings it to the front. The first time a scan begins.
  void open(const TrayPlace& place = {});

  /// What a click on the tray icon does. The click that took the keyboard away from an open panel
  /// closed it, and does not open it again.
  void toggle(const TrayPlace& place = {});

  void close();
  bool isOpen() const;

  PanelContext& context() { return context_; }
  /// Null until the panel was opened.
  PanelWindow* window() { return window_.get(); }

private:
  /// What an attached panel stands beside, as it was when the panel opened.
  struct Anchor {
    QRect icon;
    std::optional<QPoint> click; // the last on the icon; absent where the tray tells of none
  };

  void prepare(const TrayPlace& place);
  void make(PanelWindow::Kind kind);
  void followContent();
  void followWindow();
  void followScreen(QScreen* screen);
  void fitScreen();
  void stayOnScreen();
  void place();
  QScreen* screenOfAnchor() const;
  void holdInCorner();
  void closeWhenLeft();
  bool isAttached() const { return kind_ == PanelWindow::Kind::attached; }
  bool isHeightFixed() const;

  PanelContext context_;
  Placement placement_;
  Anchor anchor_;
  std::shared_ptr<MainQueue> queue_;
  PanelWindow::Kind kind_ = PanelWindow::Kind::ordinary; // of the window, when there is one
  std::unique_ptr<CornerHold> hold_; // while the desktop holds the open window in a corner
  std::unique_ptr<PanelWindow> window_;
  std::unique_ptr<PanelWindowFrame> frame_;
  std::optional<WindowManager> manager_;
  QMetaObject::Connection barsOfScreen_;  // of the window's screen
  MainQueue::WorkItem clickThatLeft_ = 0; // while the click that closed the panel may still arrive
};

} // namespace tamberline
