#include "platform/linux_desktop/drawn_menu.h"

#include "desktop/screen_corner.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <utility>

namespace tamberline {

DrawnMenu::DrawnMenu(WindowPlaces& places, MenuEntries entries)
    : places_(places), entries_(std::move(entries)) {
  for (const MenuEntry& entry : entries_) {
    menu_.addAction(entry.text, &menu_, [&entry] { entry.chosen(); });
  }
  QObject::connect(&menu_, &QMenu::aboutToHide, &menu_, [this] { hold_.reset(); });
}

void DrawnMenu::open(std::optional<QPoint> place) {
  if (menu_.isVisible()) {
    menu_.close();
    return;
  }
  if (places_.decider() == WindowPlaces::Decider::corner) {
    holdBesideTray(place);
  }
  menu_.popup(place.value_or(QCursor::pos()));
}

void DrawnMenu::holdBesideTray(std::optional<QPoint> place) {
  menu_.winId(); // so that there is a window to hold
  QWindow* const window = menu_.windowHandle();
  const QScreen* const screen = QGuiApplication::primaryScreen();
  if (window != nullptr && screen != nullptr) {
    hold_ = places_.holdInCorner(*window, cornerNextTo(place, screen->geometry()),
                                 {.clickedOutside = [this] { menu_.close(); }});
  }
}

} // namespace tamberline
