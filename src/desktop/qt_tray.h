#pragma once

#include "desktop/tray.h"

#include <QMenu>
#include <QSystemTrayIcon>

namespace tamberline {

/// The tray as Qt knows it: the menu bar of a Mac, and the older trays of X11. Main thread only.
class QtTray final : public Tray {
public:
  /// Who opens the menu.
  enum class MenuOpener : unsigned char {
    tray,    // on the click that it reserves for menus
    program, // on a right click; the tray does not know of the menu
  };

  /// Tells the tone of the bar around a place on the screen.
  using ToneProbe = std::function<BarTone(const QRect&)>;

  /// Without a probe the system gives the icon its colour.
  explicit QtTray(MenuOpener opener, ToneProbe toneProbe = nullptr);

  void show(Look look, Events events) override;
  bool isAvailable() const override;
  QRect iconGeometry() const override { return icon_.geometry(); }
  void redraw() override;

  /// Takes the icon out of the tray, and puts it in again.
  void setShown(bool isShown);

  QSystemTrayIcon& icon() { return icon_; }

private:
  void activate(QSystemTrayIcon::ActivationReason reason);
  void followBar();
  void openMenu();
  TrayPlace place() const { return {.icon = iconGeometry()}; }

  MenuOpener opener_;
  QRect drawnAt_; // where the icon was when its bar was last looked at
  ToneProbe toneProbe_;
  Look look_;
  Events events_;
  QMenu menu_;
  QSystemTrayIcon icon_; // destroyed before the menu, which it may refer to
};

} // namespace tamberline
