#pragma once

#include "desktop/window_places.h"

namespace tamberline {

/// The windows of a program that shows only an icon in the menu bar. Its panel takes keyboard focus
/// while the application that the user works in stays active: activating oneself is often refused,
/// and a window of an inactive application would stay hidden.
class MacWindowPlaces final : public WindowPlaces {
public:
  Decider decider() const override { return Decider::program; }
  bool blendsWindows() const override { return true; }
  std::unique_ptr<WindowHold> holdInCorner(QWindow& window, Qt::Corner corner,
                                           HoldEvents events) override;
  std::unique_ptr<WindowHold> holdBesideIcon(QWindow& window,
                                             const std::function<void()>& clickedOutside) override;
  void bringToFront(QWindow& window) override;
};

} // namespace tamberline
