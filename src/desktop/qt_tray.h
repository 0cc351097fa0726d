#pragma once

#include "desktop/tray.h"

#include <QGuiApplication>
#include <QMenu>
#include <QSystemTrayIcon>

namespace tamberline {

/// Qt's tray icon: the menu bar of a Mac, and the older trays of X11. Main thread only.
class QtTray final : public Tray {
public:
  /// Who opens the menu.
  enum class MenuOpener : unsigned char {
    tray,    // on the click that it reserves for menus
    program, // on a right click or Ctrl-click; the tray does not have the menu
  };

  /// Returns the tone of the bar around a position on the screen.
  using ToneProbe = std::function<BarTone(const QRect&)>;

  /// Returns which modifier keys are held.
  using KeyProbe = std::function<Qt::KeyboardModifiers()>;

  /// Without a tone probe, the system colours the icon.
  explicit QtTray(MenuOpener opener, ToneProbe toneProbe = nullptr,
                  KeyProbe keyProbe = QGuiApplication::queryKeyboardModifiers);

  void show(Look look, Events events) override;
  bool isAvailable() const override;
  QRect iconGeometry() const override { return icon_.geometry(); }
  void redraw() override;

  /// Adds the icon to the tray or removes it.
  void setShown(bool isShown);

  QSystemTrayIcon& icon() { return icon_; }

private:
  void activate(QSystemTrayIcon::ActivationReason reason);
  void followBar();
  void takeClick(QSystemTrayIcon::ActivationReason reason);
  bool isMenuKeyHeld() const;
  void openMenu();
  TrayPlace place() const { return {.icon = iconGeometry()}; }

  MenuOpener opener_;
  QRect drawnAt_; // the position of the icon when the tone of its bar was last read
  ToneProbe toneProbe_;
  KeyProbe keyProbe_;
  Look look_;
  Events events_;
  QMenu menu_;
  QSystemTrayIcon icon_; // destroyed before the menu, which it may refer to
};

} // namespace tamberline
