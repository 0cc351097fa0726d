#include "platform/linux/desktop/drawn_menu.h"

#include "desktop/screen_corner.h"

#include <QCursor>
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
    anchorBesideTray(place);
  }
  menu_.popup(place.value_or(QCursor::pos()));
}

void DrawnMenu::anchorBesideTray(std::optional<QPoint> place) {
  menu_.winId(); // creates the native window
  QWindow* const window = menu_.windowHandle();
  if (window != nullptr) {
    hold_ = places_.holdInCorner(*window, screenCornerNextTo(place),
                                 {.clickedOutside = [this] { menu_.close(); }});
  }
}

} // namespace tamberline
