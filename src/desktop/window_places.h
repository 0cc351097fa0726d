#pragma once

#include <QWindow>
#include <Qt>

#include <functional>
#include <memory>

namespace tamberline {

/// Something that a desktop does for an open window until this is destroyed.
class WindowHold {
public:
  WindowHold() = default;
  WindowHold(const WindowHold&) = delete;
  WindowHold& operator=(const WindowHold&) = delete;
  virtual ~WindowHold() = default;
};

/// Who decides the position of the program's windows on a desktop. Main thread only.
class WindowPlaces {
public:
  enum class Decider : unsigned char {
    program, // the program sets the position of a window
    corner,  // the desktop holds the window in a corner that the program chooses
    desktop, // the desktop; the program never learns the position of a window
  };

  WindowPlaces() = default;
  WindowPlaces(const WindowPlaces&) = delete;
  WindowPlaces& operator=(const WindowPlaces&) = delete;
  virtual ~WindowPlaces() = default;

  virtual Decider decider() const = 0;

  /// The events of a held window. A handler may end the hold.
  struct HoldEvents {
    /// The height of the screen that bars leave free, in points; sent as soon as the desktop
    /// reports it.
    std::function<void(double)> freeHeightReported = [](double) {};
    std::function<void()> clickedOutside = [] {};
  };

  /// Only if the decider is `corner`, and only before the window is shown. Until the hold is
  /// destroyed, it receives all clicks outside the window except those on bars.
  virtual std::unique_ptr<WindowHold> holdInCorner(QWindow& window, Qt::Corner corner,
                                                   HoldEvents events) = 0;
};

/// For a desktop on which programs position their windows.
class FreeWindowPlaces final : public WindowPlaces {
public:
  Decider decider() const override { return Decider::program; }
  std::unique_ptr<WindowHold> holdInCorner(QWindow& /*window*/, Qt::Corner /*corner*/,
                                           HoldEvents /*events*/) override {
    return nullptr;
  }
};

} // namespace tamberline
