#pragma once

#include "async/main_queue.h"
#include "panel/panel_size.h"

#include <memory>
#include <optional>

namespace tamberline {

/// The panel's window, as far as its height is concerned. Heights are in points.
class PanelFrame {
public:
  PanelFrame() = default;
  PanelFrame(const PanelFrame&) = delete;
  PanelFrame& operator=(const PanelFrame&) = delete;
  virtual ~PanelFrame() = default;

  virtual double contentHeight() const = 0;

  /// What bars leave of the screen that shows the window; absent when no screen does.
  virtual std::optional<double> visibleScreenHeight() const = 0;

  virtual void setContentHeightKeepingTop(double height) = 0;
};

/// Fits the panel's window to the height of what it shows. The frame belongs to the caller and
/// outlives the manager. Main thread only.
class WindowManager {
public:
  WindowManager(PanelFrame& frame, std::shared_ptr<MainQueue> queue);

  /// Takes effect one turn of the queue later, so that several measurements in one turn move the
  /// window once.
  void setTargetHeight(double points);

  /// The height that was last asked for, whatever the screen allows.
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
