#pragma once

#include <QWindow>
#include <Qt>

#include <functional>
#include <memory>

namespace tamberline {

/// Keeps a window in a corner of its screen, inside what bars leave free, until it goes.
class CornerHold {
public:
  CornerHold() = default;
  CornerHold(const CornerHold&) = delete;
  CornerHold& operator=(const CornerHold&) = delete;
  virtual ~CornerHold() = default;
};

/// What a desktop lets a program decide about the places of its windows. Main thread only.
class WindowPlaces {
public:
  enum class Decider : unsigned char {
    program, // a window stands where the program puts it
    corner,  // the desktop holds it in a corner that the program names
    desktop, // the desktop alone; the program never learns where a window is
  };

  WindowPlaces() = default;
  WindowPlaces(const WindowPlaces&) = delete;
  WindowPlaces& operator=(const WindowPlaces&) = delete;
  virtual ~WindowPlaces() = default;

  virtual Decider decider() const = 0;

  /// What a held window hears of. Either may end the hold.
  struct HoldEvents {
    /// What bars leave of the screen's height, in points; told once the desktop has said it.
    std::function<void(double)> freeHeightTold = [](double) {};
    std::function<void()> clickedOutside = [] {};
  };

  /// Only where the decider is `corner`, and only before the window is shown. Until the hold goes,
  /// clicks beside the window go to nobody else, except those on bars.
  virtual std::unique_ptr<CornerHold> holdInCorner(QWindow& window, Qt::Corner corner,
                                                   HoldEvents events) = 0;
};

/// The places of a desktop whose windows stand where programs put them.
class FreeWindowPlaces final : public WindowPlaces {
public:
  Decider decider() const override { return Decider::program; }
  std::unique_ptr<CornerHold> holdInCorner(QWindow& /*window*/, Qt::Corner /*corner*/,
                                           HoldEvents /*events*/) override {
    return nullptr;
  }
};

} // namespace tamberline
