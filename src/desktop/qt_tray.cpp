#include "desktop/qt_tray.h"

#include <QCursor>
#include <QTimer>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

/// How long a tray takes to show an icon, so that the bar around it can be looked at. Trays do not
/// tell; an icon that was drawn too early is only less pretty, since it is seen on every bar.
constexpr std::chrono::milliseconds trayShowsIcon{1000};

} // namespace

QtTray::QtTray(MenuOpener opener, ToneProbe toneProbe)
    : opener_(opener), toneProbe_(std::move(toneProbe)) {
  QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_,
                   [this](QSystemTrayIcon::ActivationReason reason) { activate(reason); });
}

void QtTray::show(Look look, Events events) {
  look_ = std::move(look);
  events_ = std::move(events);
  menu_.addAction(look_.openText, &menu_, [this] { events_.openChosen(place()); });
  menu_.addAction(look_.quitText, &menu_, [this] { events_.quitChosen(); });
  icon_.setToolTip(look_.title);
  if (opener_ == MenuOpener::tray) {
    icon_.setContextMenu(&menu_);
  }
  setShown(true);
}

void QtTray::setShown(bool isShown) {
  if (isShown) {
    redraw();
    QTimer::singleShot(trayShowsIcon, &icon_, [this] { redraw(); });
  }
  icon_.setVisible(isShown);
}

bool QtTray::isAvailable() const {
  return QSystemTrayIcon::isSystemTrayAvailable();
}

void QtTray::redraw() {
  icon_.setIcon(look_.icon(toneProbe_(iconGeometry())));
}

void QtTray::activate(QSystemTrayIcon::ActivationReason reason) {
  if (reason == QSystemTrayIcon::Trigger) {
    events_.clicked(place());
  } else if (reason == QSystemTrayIcon::Context && opener_ == MenuOpener::program) {
    openMenu();
  }
}

void QtTray::openMenu() {
  const QRect icon = iconGeometry();
  menu_.popup(icon.isEmpty() ? QCursor::pos() : icon.bottomLeft());
}

} // namespace tamberline
