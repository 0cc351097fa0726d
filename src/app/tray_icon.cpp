#include "app/tray_icon.h"

#include "app/menu_bar_icon.h"
#include "i18n/loc.h"

#include <QCursor>

#include <utility>

namespace tamberline {
namespace {

QString asQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

TrayIcon::TrayIcon(Actions actions, MenuOpener opener)
    : actions_(std::move(actions)), opener_(opener), icon_(menuBarIcon()) {
  menu_.addAction(asQString(Loc::openPanel()), &menu_, [this] { actions_.open(); });
  menu_.addAction(asQString(Loc::quit()), &menu_, [this] { actions_.quit(); });
  icon_.setToolTip(QStringLiteral("Tamberline"));
  if (opener_ == MenuOpener::tray) {
    icon_.setContextMenu(&menu_);
  }
  QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_,
                   [this](QSystemTrayIcon::ActivationReason reason) { activate(reason); });
}

void TrayIcon::redraw() {
  icon_.setIcon(menuBarIcon());
}

void TrayIcon::activate(QSystemTrayIcon::ActivationReason reason) {
  if (reason == QSystemTrayIcon::Trigger) {
    actions_.toggle();
  } else if (reason == QSystemTrayIcon::Context && opener_ == MenuOpener::program) {
    openMenu();
  }
}

void TrayIcon::openMenu() {
  const QRect place = geometry();
  menu_.popup(place.isEmpty() ? QCursor::pos() : place.bottomLeft());
}

} // namespace tamberline
