#pragma once

#include "async/main_queue.h"
#include "panel/panel_size.h"

#include <memory>
#include <optional>

namespace tamberline {

/// The height of the panel's window. Heights are in points.
class PanelFrame {
public:
  PanelFrame() = default;
  PanelFrame(const PanelFrame&) = delete;
  PanelFrame& operator=(const PanelFrame&) = delete;
  virtual ~PanelFrame() = default;

  virtual double contentHeight() const = 0;

  /// The height that bars leave free on the screen of the window; absent if it is on none.
  virtual std::optional<double> visibleScreenHeight() const = 0;

  virtual void setContentHeightKeepingTop(double height) = 0;
};

/// Fits the panel's window to the height of its content. The frame belongs to the caller and
/// outlives the manager. Main thread only.
class WindowManager {
public:
  WindowManager(PanelFrame& frame, std::shared_ptr<MainQueue> queue);

  /// Takes effect on the next event-loop iteration, so that several measurements in one iteration
  /// move the window only once.
  void setTargetHeight(double points);

  /// The last requested height, regardless of the screen.
  double targetHeight() const { return targetHeight_; }

private:
  struct PendingApply {};

  void apply();

  PanelFrame& frame_;
  std::shared_ptr<MainQueue> queue_;
  double targetHeight_ = PanelSize::initialHeight;
  std::shared_ptr<PendingApply> pendingApply_; // posted work holds it weakly
};

} // namespace tamberline
