#include "app/window_manager.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tamberline {
namespace {

/// Smaller differences are due to rounding; following them would make the window jitter.
constexpr double toleratedDifference = 1;

double heightThatFits(double target, std::optional<double> visibleScreenHeight) {
  const double height = std::max(PanelSize::minimumHeight, target);
  return visibleScreenHeight ? std::min(height, *visibleScreenHeight) : height;
}

} // namespace

WindowManager::WindowManager(PanelFrame& frame, std::shared_ptr<MainQueue> queue)
    : frame_(frame), queue_(std::move(queue)) {}

void WindowManager::setTargetHeight(double points) {
  targetHeight_ = points;
  if (pendingApply_) {
    return;
  }
  pendingApply_ = std::make_shared<PendingApply>();
  queue_->post([this, pending = std::weak_ptr(pendingApply_)] {
    if (!pending.expired()) {
      pendingApply_.reset();
      apply();
    }
  });
}

void WindowManager::apply() {
  const double height = heightThatFits(targetHeight_, frame_.visibleScreenHeight());
  if (std::abs(height - frame_.contentHeight()) > toleratedDifference) {
    frame_.setContentHeightKeepingTop(height);
  }
}

} // namespace tamberline
