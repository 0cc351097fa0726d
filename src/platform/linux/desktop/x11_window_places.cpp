#include "platform/linux/desktop/x11_window_places.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

namespace tamberline {

void X11WindowPlaces::setColorOfNewAreas(QWindow& window, const QColor& color) {
  auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 != nullptr) {
    const std::uint32_t pixel = color.rgba();
    xcb_change_window_attributes(x11->connection(), static_cast<xcb_window_t>(window.winId()),
                                 XCB_CW_BACK_PIXEL, &pixel);
  }
}

} // namespace tamberline
