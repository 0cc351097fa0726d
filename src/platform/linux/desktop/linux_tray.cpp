#include "platform/linux/desktop/linux_tray.h"

#include "platform/linux/desktop/bar_tone.h"

#include <QGuiApplication>

#include <utility>

namespace tamberline {
namespace {

bool isX11() {
  return QGuiApplication::platformName() == QLatin1String("xcb");
}

} // namespace

LinuxTray::LinuxTray(std::shared_ptr<WindowPlaces> places)
    : places_(std::move(places)),
      notifier_({.availabilityChanged = [this] { useAvailableTray(); },
                 .menuWanted = [this](std::optional<QPoint> place) { openMenu(place); }}) {}

void LinuxTray::show(Look look, Events events) {
  look_ = std::move(look);
  events_ = std::move(events);
  menu_.emplace(*places_, MenuEntries{{look_.openText, [this] { events_.openChosen({}); }},
                                      {look_.quitText, [this] { events_.quitChosen(); }}});
  notifier_.show(look_, events_);
  useAvailableTray();
}

/// Qt's tray looks for the tray on the bus on first use, blocks until the answer arrives and never
/// looks again. So it is not used while that tray is available or may still turn out to be.
bool LinuxTray::isAvailable() const {
  return notifier_.isAvailable() ||
         (isX11() && !notifier_.isUndecided() && QSystemTrayIcon::isSystemTrayAvailable());
}

/// Qt reports the upper left corner until the tray has embedded the icon.
QRect LinuxTray::iconGeometry() const {
  const QRect icon = x11_ && !notifier_.isAvailable() ? x11_->iconGeometry() : QRect();
  return icon.topLeft() == QPoint(0, 0) ? QRect() : icon;
}

void LinuxTray::redraw() {
  notifier_.redraw();
  if (x11_) {
    x11_->redraw();
  }
}

void LinuxTray::useAvailableTray() {
  if (!menu_ || notifier_.isUndecided()) {
    return; // not shown yet, or not known yet
  }
  if (notifier_.isAvailable()) {
    if (x11_) {
      x11_->setShown(false);
    }
  } else if (x11_) {
    x11_->setShown(true);
  } else if (isX11()) {
    x11_ = std::make_unique<QtTray>(QtTray::MenuOpener::tray, barToneAround);
    x11_->show(look_, events_);
  }
}

/// If the desktop decides where windows are, a menu cannot be placed. The panel opens instead; it
/// offers the same commands.
void LinuxTray::openMenu(std::optional<QPoint> place) {
  if (places_->decider() == WindowPlaces::Decider::desktop) {
    events_.openChosen({.click = place});
  } else {
    menu_->open(place);
  }
}

} // namespace tamberline
