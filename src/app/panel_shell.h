#pragma once

#include "app/window_manager.h"
#include "panel/panel_context.h"
#include "panel/panel_window.h"

#include <QPoint>
#include <QRect>

#include <functional>
#include <memory>
#include <optional>

namespace tamberline {

/// The panel as a window on the desktop: made when it is first wanted, then kept; where it stands,
/// how high it is, when it goes. Main thread only.
class PanelShell {
public:
  struct Placement {
    PanelWindow::Kind kind = PanelWindow::Kind::ordinary;
    /// Where the tray icon is; an empty rectangle where the tray does not tell.
    std::function<QRect()> iconGeometry = [] { return QRect(); };
    /// False to let the panel become as high as without a screen, for pictures of it.
    bool isBoundByScreen = true;
  };

  PanelShell(PanelContext::Outside outside, Placement placement);
  PanelShell(const PanelShell&) = delete;
  PanelShell& operator=(const PanelShell&) = delete;
  ~PanelShell();

  /// Shows the panel, or brings it to the front. The first time a scan begins.
  void open();

  /// What a click on the tray icon does. The click that took the keyboard away from an open panel
  /// closed it, and does not open it again.
  void toggle();

  void close();
  bool isOpen() const;

  PanelContext& context() { return context_; }
  /// Null until the panel was opened.
  PanelWindow* window() { return window_.get(); }

private:
  class Frame;

  /// What an attached panel stands beside, as it was when the panel opened.
  struct Anchor {
    QRect icon;
    QPoint cursor;
  };

  void make();
  void place();
  void closeWhenLeft();

  PanelContext context_;
  Placement placement_;
  Anchor anchor_;
  std::shared_ptr<MainQueue> queue_;
  std::unique_ptr<PanelWindow> window_;
  std::unique_ptr<Frame> frame_;
  std::optional<WindowManager> manager_;
  MainQueue::WorkItem clickThatLeft_ = 0; // while the click that closed the panel may still arrive
};

} // namespace tamberline
