#pragma once

#include "app/window_manager.h"
#include "panel/panel_window.h"

#include <QRect>

#include <functional>
#include <optional>
#include <utility>

class QScreen;

namespace tamberline {

/// The panel's window as the window manager sees it: its height, and what the screen leaves for it.
/// Main thread only.
class PanelWindowFrame final : public PanelFrame {
public:
  /// What bars leave free of a screen.
  using FreePlace = std::function<QRect(const QScreen&)>;

  /// The window outlives the frame. A frame that is not bound by the screen is as high as its
  /// content, for pictures of it.
  PanelWindowFrame(PanelWindow& window, FreePlace freePlace, bool isBoundByScreen)
      : window_(window), freePlace_(std::move(freePlace)), isBoundByScreen_(isBoundByScreen) {}

  /// What bars leave of the screen's height, where the desktop tells it.
  void setFreeHeight(double points) { freeHeight_ = points; }

  double contentHeight() const override { return window_.height(); }
  std::optional<double> visibleScreenHeight() const override;

  /// The system keeps the position of a window that changes its size, which is its top left corner.
  void setContentHeightKeepingTop(double height) override { fixSize(qRound(height)); }

  /// The size for a window whose place only the desktop knows: a window that grows could leave the
  /// screen there, so this one has room for several open rows from the start.
  void takeFixedHeight();

  /// Lets the desktop give the window another size, while it is maximized or fills the screen.
  void releaseSize();

  /// Moves a window with a frame up, as far as it ends below what the screen leaves free.
  void keepOnScreen();

private:
  void fixSize(int height);

  PanelWindow& window_;
  FreePlace freePlace_;
  bool isBoundByScreen_;
  std::optional<double> freeHeight_; // as it was told last
};

} // namespace tamberline
