#include "platform/macos/mac_window_places.h"

#include "platform/macos/native_application.h"
#include "platform/macos/native_panel.h"

#include <QGuiApplication>
#include <QList>

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

/// The application may have become active nevertheless, for example when the user opened it again.
/// An active application without a window would keep the keyboard to itself.
void returnKeyboardFocus() {
  const QList<QWindow*> windows = QGuiApplication::topLevelWindows();
  if (std::none_of(windows.begin(), windows.end(),
                   [](const QWindow* window) { return window->isVisible(); })) {
    hideActiveApplication();
  }
}

/// Watches clicks because one that takes no keyboard focus from the panel, such as a click on
/// another icon in the menu bar, should close it too.
class PanelHold final : public WindowHold {
public:
  explicit PanelHold(std::function<void()> clickedOutside) : clicks_(std::move(clickedOutside)) {}
  PanelHold(const PanelHold&) = delete;
  PanelHold& operator=(const PanelHold&) = delete;

  /// The panel is released while it closes, so it is still visible.
  ~PanelHold() override {
    QMetaObject::invokeMethod(qGuiApp, returnKeyboardFocus, Qt::QueuedConnection);
  }

private:
  OutsideClicks clicks_;
};

} // namespace

std::unique_ptr<WindowHold>
MacWindowPlaces::holdInCorner(QWindow& /*window*/, Qt::Corner /*corner*/, HoldEvents /*events*/) {
  return nullptr;
}

std::unique_ptr<WindowHold>
MacWindowPlaces::holdBesideIcon(QWindow& window, const std::function<void()>& clickedOutside) {
  prepareNativePanel(window.winId());
  return std::make_unique<PanelHold>(clickedOutside);
}

/// For a panel this does not call raise, with which Qt also activates the application. Qt does not
/// do that when a window requests keyboard focus.
void MacWindowPlaces::bringToFront(QWindow& window) {
  if (window.type() != Qt::Tool) {
    WindowPlaces::bringToFront(window);
    return;
  }
  orderNativePanelFront(window.winId());
  window.requestActivate();
}

} // namespace tamberline
