#pragma once

#include "desktop/window_places.h"
#include "platform/linux/desktop/menu_entry.h"

#include <QMenu>
#include <QPoint>

#include <memory>
#include <optional>

namespace tamberline {

/// The icon's menu, for trays that require the program to draw it. Main thread only.
class DrawnMenu {
public:
  /// `places` must outlive the menu. On its desktop, programs must be able to influence the
  /// position of windows.
  DrawnMenu(WindowPlaces& places, MenuEntries entries);

  /// Opens the menu at a position on the desktop, or at the cursor if the tray reported none.
  /// Closes the menu if it is open.
  void open(std::optional<QPoint> place);

  QMenu& menu() { return menu_; }

private:
  void anchorBesideTray(std::optional<QPoint> place);

  WindowPlaces& places_;
  MenuEntries entries_;
  QMenu menu_;
  std::unique_ptr<WindowHold> hold_; // may be null
};

} // namespace tamberline
