#pragma once

#include "desktop/window_places.h"
#include "platform/linux/desktop/menu_entry.h"

#include <QMenu>
#include <QPoint>

#include <memory>
#include <optional>

namespace tamberline {

/// The icon's menu for trays that leave the drawing to the program. Main thread only.
class DrawnMenu {
public:
  /// The places outlive the menu; on their desktop a program must have a say in where windows
  /// stand.
  DrawnMenu(WindowPlaces& places, MenuEntries entries);

  /// Opens it at a place on the desktop; at the cursor where the tray told of none.
  void open(std::optional<QPoint> place);

  QMenu& menu() { return menu_; }

private:
  void anchorBesideTray(std::optional<QPoint> place);

  WindowPlaces& places_;
  MenuEntries entries_;
  QMenu menu_;
  std::unique_ptr<CornerHold> hold_; // may be null
};

} // namespace tamberline
