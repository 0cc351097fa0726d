// A desktop that the test controls: its tray and the positions of windows.
#pragma once

#include "desktop/tray.h"
#include "desktop/window_places.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tamberline {

class FakeTray final : public Tray {
public:
  void show(Look newLook, Events newEvents) override {
    look = std::move(newLook);
    events = std::move(newEvents);
    isShown = true;
  }
  bool isAvailable() const override { return isThere; }
  QRect iconGeometry() const override { return geometry; }
  void redraw() override { ++redraws; }

  bool isThere = true;
  bool isShown = false;
  QRect geometry;
  Look look;
  Events events;
  int redraws = 0;
};

/// Holds windows in corners or beside an icon, or never reports their positions.
class FakeWindowPlaces final : public WindowPlaces {
public:
  explicit FakeWindowPlaces(Decider decider) : decider_(decider) {}

  Decider decider() const override { return decider_; }
  bool blendsWindows() const override { return blends; }

  std::unique_ptr<WindowHold> holdInCorner(QWindow& /*window*/, Qt::Corner corner,
                                           HoldEvents newEvents) override {
    corners.push_back(corner);
    events = std::move(newEvents);
    ++holds;
    return std::make_unique<Hold>(*this);
  }

  std::unique_ptr<WindowHold> holdBesideIcon(QWindow& window,
                                             const std::function<void()>& clickedOutside) override {
    calls.emplace_back(window.isVisible() ? "hold shown window" : "hold hidden window");
    events.clickedOutside = clickedOutside;
    ++holds;
    return std::make_unique<Hold>(*this);
  }

  void bringToFront(QWindow& window) override {
    calls.emplace_back(window.isVisible() ? "bring shown window to front"
                                          : "bring hidden window to front");
    WindowPlaces::bringToFront(window);
  }

  void setColorOfNewAreas(QWindow& /*window*/, const QColor& color) override {
    colorOfNewAreas = color;
  }

  bool blends = false;
  std::vector<std::string> calls;
  std::vector<Qt::Corner> corners; // of each hold in a corner
  QColor colorOfNewAreas;          // as last set
  HoldEvents events;               // of the last hold
  int holds = 0;                   // current number of holds

private:
  class Hold final : public WindowHold {
  public:
    explicit Hold(FakeWindowPlaces& places) : places_(places) {}
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;
    ~Hold() override {
      --places_.holds;
      places_.calls.emplace_back("release");
    }

  private:
    FakeWindowPlaces& places_;
  };

  Decider decider_;
};

} // namespace tamberline
