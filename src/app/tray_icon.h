#pragma once

#include <QMenu>
#include <QRect>
#include <QSystemTrayIcon>

#include <functional>

namespace tamberline {

/// The icon in the tray, or in the menu bar of a Mac, with its menu. Main thread only.
class TrayIcon {
public:
  struct Actions {
    std::function<void()> toggle; // what a click does
    std::function<void()> open;
    std::function<void()> quit;
  };

  /// Who opens the menu.
  enum class MenuOpener : unsigned char {
    tray,    // on the click that it reserves for menus
    program, // on a right click; the tray does not know of the menu
  };

  TrayIcon(Actions actions, MenuOpener opener);

  QSystemTrayIcon& icon() { return icon_; }

  /// Where it is; empty where the tray does not tell.
  QRect geometry() const { return icon_.geometry(); }

  /// Draws it anew, for a bar in other colours.
  void redraw();

private:
  void activate(QSystemTrayIcon::ActivationReason reason);
  void openMenu();

  Actions actions_;
  MenuOpener opener_;
  QMenu menu_;
  QSystemTrayIcon icon_; // goes before the menu, which it may know
};

} // namespace tamberline
