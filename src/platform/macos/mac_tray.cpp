#include "platform/macos/mac_tray.h"

#include <utility>

namespace tamberline {

void MacTray::show(Look look, Events events) {
  const auto open = [this, openChosen = events.openChosen] {
    openChosen({.icon = iconGeometry()});
  };
  tray_.show(std::move(look), std::move(events));
  QMetaObject::invokeMethod(
      &tray_.icon(), [this, open] { reopenRequests_.emplace(open); }, Qt::QueuedConnection);
}

} // namespace tamberline
