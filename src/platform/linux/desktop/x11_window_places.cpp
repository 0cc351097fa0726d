#include "platform/linux/desktop/x11_window_places.h"

#include <QGuiApplication>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace tamberline {
namespace {

using QNativeInterface::QX11Application;

/// The X library allocates its replies for the caller to free.
template <typename Value>
using Reply = std::unique_ptr<Value, decltype(&std::free)>;

/// None if there is no such window.
xcb_window_t ownerOfSelection(xcb_connection_t* connection, std::string_view name) {
  const Reply<xcb_intern_atom_reply_t> atom(
      xcb_intern_atom_reply(
          connection,
          xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data()),
          nullptr),
      std::free);
  if (!atom) {
    return XCB_NONE;
  }
  const Reply<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom),
                                    nullptr),
      std::free);
  return owner ? owner->owner : XCB_NONE;
}

} // namespace

/// A compositing manager owns a selection named after its screen. Qt uses one screen of a display.
bool X11WindowPlaces::blendsWindows() const {
  auto* const x11 = qGuiApp->nativeInterface<QX11Application>();
  return x11 != nullptr && ownerOfSelection(x11->connection(), "_NET_WM_CM_S0") != XCB_NONE;
}

void X11WindowPlaces::setColorOfNewAreas(QWindow& window, const QColor& color) {
  auto* const x11 = qGuiApp->nativeInterface<QX11Application>();
  if (x11 != nullptr) {
    const std::uint32_t pixel = color.rgba();
    xcb_change_window_attributes(x11->connection(), static_cast<xcb_window_t>(window.winId()),
                                 XCB_CW_BACK_PIXEL, &pixel);
  }
}

} // namespace tamberline
