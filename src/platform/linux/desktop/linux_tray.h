#pragma once

#include "desktop/qt_tray.h"
#include "desktop/tray.h"
#include "desktop/window_places.h"
#include "platform/linux/desktop/drawn_menu.h"
#include "platform/linux/desktop/status_notifier_tray.h"

#include <memory>
#include <optional>

namespace tamberline {

/// The tray of a Linux desktop: the one on the session bus if there is one, or else the older X11
/// tray. Main thread only.
class LinuxTray final : public Tray {
public:
  explicit LinuxTray(std::shared_ptr<WindowPlaces> places);

  void show(Look look, Events events) override;
  bool isAvailable() const override;
  QRect iconGeometry() const override;
  void redraw() override;

private:
  void useAvailableTray();
  void openMenu(std::optional<QPoint> place);

  std::shared_ptr<WindowPlaces> places_;
  Look look_;
  Events events_;
  std::unique_ptr<QtTray> x11_; // created on first use
  std::optional<DrawnMenu> menu_;
  StatusNotifierTray notifier_;
};

} // namespace tamberline
