#pragma once

#include <QIcon>
#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

namespace tamberline {

/// How bright the bar behind the icon is.
enum class BarTone : unsigned char {
  asPalette, // the system recolours the icon itself, or draws its bars in window colours
  dark,
  light,
  unknown, // the icon must be visible on both
};

/// The position of the icon when the user clicked it, as far as the tray reports it.
struct TrayPlace {
  QRect icon = {};                            // empty if the tray does not report it
  std::optional<QPoint> click = std::nullopt; // on the desktop, in points
};

/// The program's icon in the desktop's tray, or in the menu bar of a Mac. A tray may start and stop
/// while the program runs; the icon appears whenever there is one. Main thread only.
class Tray {
public:
  struct Look {
    QString title;
    /// The name of the symbolic icon that the program installs into icon themes.
    QString iconName;
    std::function<QIcon(BarTone)> icon; // for trays that do not support names
    QString openText;
    QString quitText;
  };

  struct Events {
    std::function<void(const TrayPlace&)> clicked;
    std::function<void(const TrayPlace&)> openChosen; // in the menu
    std::function<void()> quitChosen;                 // in the menu
  };

  Tray() = default;
  Tray(const Tray&) = delete;
  Tray& operator=(const Tray&) = delete;
  virtual ~Tray() = default;

  /// Shows the icon as soon as there is a tray, until the object is destroyed. Call it only once.
  virtual void show(Look look, Events events) = 0;

  /// Whether there is a tray for the icon now. Fast enough to be called whenever it matters.
  virtual bool isAvailable() const = 0;

  /// The current position of the icon; empty if the tray does not report it.
  virtual QRect iconGeometry() const = 0;

  /// Redraws the icon after the colours of the desktop have changed.
  virtual void redraw() = 0;
};

} // namespace tamberline
