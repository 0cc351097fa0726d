#pragma once

#include <QColor>
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

  /// The events of a window held in a corner. A handler may end the hold.
  struct HoldEvents {
    /// The height of the screen that bars leave free, in points; sent as soon as the desktop
    /// reports it.
    std::function<void(double)> freeHeightReported = [](double) {};
    std::function<void()> clickedOutside = [] {};
  };

  /// Keeps the window in a corner of its screen, within the area that bars leave free. Only if the
  /// decider is `corner`, and only before the window is shown. Until the hold is destroyed, it
  /// receives all clicks outside the window except those on bars.
  virtual std::unique_ptr<WindowHold> holdInCorner(QWindow& window, Qt::Corner corner,
                                                   HoldEvents events) = 0;

  /// Prepares a panel that opens briefly beside its icon. Only if the decider is `program`, and
  /// only before the window is shown. Until the hold is destroyed, it reports clicks outside, which
  /// may end the hold; then it returns keyboard focus. Null if the desktop does all of this itself.
  virtual std::unique_ptr<WindowHold>
  holdBesideIcon(QWindow& /*window*/, const std::function<void()>& /*clickedOutside*/) {
    return nullptr;
  }

  /// Puts a shown window in front of all others and gives it keyboard focus.
  virtual void bringToFront(QWindow& window) {
    window.raise();
    window.requestActivate();
  }

  /// Whether transparent parts of a window show what is behind it. May change while the program
  /// runs.
  virtual bool blendsWindows() const = 0;

  /// The colour of the areas by which a window has grown until the program has painted them, where
  /// the desktop needs to be told. Only for a window that is shown.
  virtual void setColorOfNewAreas(QWindow& /*window*/, const QColor& /*color*/) {}
};

/// For a desktop on which programs position their windows.
class FreeWindowPlaces final : public WindowPlaces {
public:
  Decider decider() const override { return Decider::program; }
  bool blendsWindows() const override { return false; }
  std::unique_ptr<WindowHold> holdInCorner(QWindow& /*window*/, Qt::Corner /*corner*/,
                                           HoldEvents /*events*/) override {
    return nullptr;
  }
};

} // namespace tamberline
