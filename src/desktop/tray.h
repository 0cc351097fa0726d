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
  asPalette, // the system recolours the icon itself, or paints its bars as windows
  dark,
  light,
  unknown, // the icon must be seen on both
};

/// Where the icon was when something was done to it, as far as the tray tells.
struct TrayPlace {
  QRect icon = {};                            // empty where the tray does not tell
  std::optional<QPoint> click = std::nullopt; // on the desktop, in points
};

/// The program's icon in the desktop's tray, or in the menu bar of a Mac. A tray may come and go
/// while the program runs; the icon follows it. Main thread only.
class Tray {
public:
  struct Look {
    QString title;
    /// The name of the symbolic icon that the program installs into icon themes.
    QString iconName;
    std::function<QIcon(BarTone)> icon; // for trays that do not know the name
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

  /// Shows the icon as soon as there is a tray, until the object is destroyed. Call it once.
  virtual void show(Look look, Events events) = 0;

  /// Whether there is a tray for the icon now. Quick enough to be asked whenever it matters.
  virtual bool isAvailable() const = 0;

  /// Where the icon is now; empty where the tray does not tell.
  virtual QRect iconGeometry() const = 0;

  /// Redraws the icon after the colours of the desktop have changed.
  virtual void redraw() = 0;
};

} // namespace tamberline
