#pragma once

#include "app/window_manager.h"
#include "panel/panel_window.h"

#include <QRect>

#include <functional>
#include <optional>
#include <utility>

class QScreen;

namespace tamberline {

/// The panel's window for the window manager: its height, and the height available on the screen.
/// Main thread only.
class PanelWindowFrame final : public PanelFrame {
public:
  /// The area of a screen that bars leave free.
  using FreePlace = std::function<QRect(const QScreen&)>;

  /// The window outlives the frame. If the frame is not bound by the screen, it is as high as its
  /// content, for pictures of it.
  PanelWindowFrame(PanelWindow& window, FreePlace freePlace, bool isBoundByScreen)
      : window_(window), freePlace_(std::move(freePlace)), isBoundByScreen_(isBoundByScreen) {}

  /// The height of the screen that bars leave free, if the desktop reports it.
  void setFreeHeight(double points) { freeHeight_ = points; }

  double contentHeight() const override { return window_.height(); }
  std::optional<double> visibleScreenHeight() const override;

  /// When a window is resized, the system keeps its position, which is its top left corner.
  void setContentHeightKeepingTop(double height) override { fixSize(qRound(height)); }

  /// The size for a window whose position only the desktop knows. Such a window could leave the
  /// screen if it grew, so it has room for several open rows from the start.
  void takeFixedHeight();

  /// Lets the desktop resize the window while it is maximized or in full screen.
  void releaseSize();

  /// Moves a window with a frame up if it extends below the free area of the screen.
  void keepOnScreen();

private:
  void fixSize(int height);

  PanelWindow& window_;
  FreePlace freePlace_;
  bool isBoundByScreen_;
  std::optional<double> freeHeight_; // the last reported value
};

} // namespace tamberline
