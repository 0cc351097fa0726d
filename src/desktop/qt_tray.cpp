#include "desktop/qt_tray.h"

#include <QCursor>
#include <QTimer>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

/// The interval of checks where the icon is: trays send no event when they move it.
constexpr std::chrono::milliseconds barCheckInterval{1000};

} // namespace

QtTray::QtTray(MenuOpener opener, ToneProbe toneProbe, KeyProbe keyProbe)
    : opener_(opener), toneProbe_(std::move(toneProbe)), keyProbe_(std::move(keyProbe)) {
  QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_,
                   [this](QSystemTrayIcon::ActivationReason reason) { activate(reason); });
  if (toneProbe_) {
    auto* const timer = new QTimer(&icon_);
    QObject::connect(timer, &QTimer::timeout, &icon_, [this] { followBar(); });
    timer->start(barCheckInterval);
  }
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
  }
  icon_.setVisible(isShown);
}

bool QtTray::isAvailable() const {
  return QSystemTrayIcon::isSystemTrayAvailable();
}

void QtTray::redraw() {
  drawnAt_ = iconGeometry();
  icon_.setIcon(look_.icon(toneProbe_ ? toneProbe_(drawnAt_) : BarTone::asPalette));
}

/// The new bar may have another tone.
void QtTray::followBar() {
  if (iconGeometry() != drawnAt_) {
    redraw();
  }
}

void QtTray::activate(QSystemTrayIcon::ActivationReason reason) {
  if (opener_ == MenuOpener::program) {
    takeClick(reason);
  } else if (reason == QSystemTrayIcon::Trigger) {
    events_.clicked(place());
  }
}

/// From a tray that does not have the menu. The menu bar of a Mac sends a double click instead of
/// the second of two quick clicks.
void QtTray::takeClick(QSystemTrayIcon::ActivationReason reason) {
  const bool isLeftClick =
      reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick;
  if (reason == QSystemTrayIcon::Context || (isLeftClick && isMenuKeyHeld())) {
    openMenu();
  } else if (isLeftClick) {
    events_.clicked(place());
  }
}

/// With Ctrl, a click stands for a right click on a Mac. Qt calls that key "meta" there.
bool QtTray::isMenuKeyHeld() const {
  return keyProbe_().testFlag(Qt::MetaModifier);
}

void QtTray::openMenu() {
  const QRect icon = iconGeometry();
  menu_.popup(icon.isEmpty() ? QCursor::pos() : icon.bottomLeft());
}

} // namespace tamberline
