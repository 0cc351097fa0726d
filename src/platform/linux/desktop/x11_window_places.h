#pragma once

#include "desktop/window_places.h"

namespace tamberline {

/// On X11 the program positions its windows. Main thread only.
class X11WindowPlaces final : public WindowPlaces {
public:
  Decider decider() const override { return Decider::program; }
  /// Only while a compositing manager runs.
  bool blendsWindows() const override;
  std::unique_ptr<WindowHold> holdInCorner(QWindow& /*window*/, Qt::Corner /*corner*/,
                                           HoldEvents /*events*/) override {
    return nullptr;
  }
  /// Otherwise the server leaves there whatever the window manager's frame has below the window,
  /// which is often white.
  void setColorOfNewAreas(QWindow& window, const QColor& color) override;
};

} // namespace tamberline
