#include "platform/linux/desktop/layer_shell.h"

#include <QColor>
#include <QPaintEvent>
#include <QPainter>
#include <QRasterWindow>
#include <QScreen>

#include <LayerShellQt/Window>
#include <cstring>
#include <utility>
#include <wayland-client.h>

namespace tamberline {
namespace {

using LayerWindow = LayerShellQt::Window;

/// Between a held window and the edges of the free area, in points.
constexpr int margin = 8;

LayerWindow::Anchors anchorsOf(Qt::Corner corner) {
  const bool isLeft = corner == Qt::TopLeftCorner || corner == Qt::BottomLeftCorner;
  const bool isTop = corner == Qt::TopLeftCorner || corner == Qt::TopRightCorner;
  return LayerWindow::Anchors(isLeft ? LayerWindow::AnchorLeft : LayerWindow::AnchorRight) |
         (isTop ? LayerWindow::AnchorTop : LayerWindow::AnchorBottom);
}

/// A transparent window below a held window that covers the area that bars leave free. Its size
/// shows how large that area is, and it receives the clicks outside the held window. (Not every
/// desktop takes keyboard focus from a held window when something else is clicked.)
class Backdrop final : public QRasterWindow {
public:
  explicit Backdrop(WindowPlaces::HoldEvents events) : events_(std::move(events)) {
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    QSurfaceFormat transparent = format();
    transparent.setAlphaBufferSize(8);
    setFormat(transparent);
    resize(1, 1);
    LayerWindow* const layer = LayerWindow::get(this);
    layer->setScope(QStringLiteral("tamberline-backdrop"));
    layer->setLayer(LayerWindow::LayerTop);
    layer->setAnchors(LayerWindow::Anchors(LayerWindow::AnchorTop) | LayerWindow::AnchorBottom |
                      LayerWindow::AnchorLeft | LayerWindow::AnchorRight);
    layer->setKeyboardInteractivity(LayerWindow::KeyboardInteractivityNone);
    layer->setScreenConfiguration(LayerWindow::ScreenFromCompositor);
  }

  /// Stops the callbacks; the window may exist longer than the objects that they use.
  void forgetEvents() { events_ = {}; }

protected:
  void resizeEvent(QResizeEvent* event) override {
    QRasterWindow::resizeEvent(event);
    if (height() > 1) { // the desktop has set the window's size
      events_.freeHeightReported(height());
    }
  }
  void mousePressEvent(QMouseEvent* /*event*/) override {
    const auto clickedOutside = events_.clickedOutside; // a copy: the call may end the hold
    clickedOutside();
  }

  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), Qt::transparent);
  }

private:
  WindowPlaces::HoldEvents events_;
};

class LayerShellHold final : public WindowHold {
public:
  LayerShellHold(QWindow& window, Qt::Corner corner, WindowPlaces::HoldEvents events)
      : backdrop_(new Backdrop(std::move(events))) {
    LayerWindow* const layer = LayerWindow::get(&window);
    layer->setScope(QStringLiteral("tamberline"));
    layer->setLayer(LayerWindow::LayerOverlay);
    layer->setAnchors(anchorsOf(corner));
    layer->setMargins({margin, margin, margin, margin});
    layer->setKeyboardInteractivity(LayerWindow::KeyboardInteractivityOnDemand);
    layer->setScreenConfiguration(LayerWindow::ScreenFromCompositor);
    backdrop_->show();
  }
  LayerShellHold(const LayerShellHold&) = delete;
  LayerShellHold& operator=(const LayerShellHold&) = delete;

  /// The event loop deletes the backdrop, because a click on it may be what ends the hold.
  ~LayerShellHold() override {
    backdrop_->forgetEvents();
    backdrop_->hide();
    backdrop_->deleteLater();
  }

private:
  Backdrop* backdrop_; // deleted by the event loop
};

class LayerShellPlaces final : public WindowPlaces {
public:
  Decider decider() const override { return Decider::corner; }
  bool blendsWindows() const override { return true; }

  std::unique_ptr<WindowHold> holdInCorner(QWindow& window, Qt::Corner corner,
                                           HoldEvents events) override {
    return std::make_unique<LayerShellHold>(window, corner, std::move(events));
  }
};

void noteLayerShell(void* isThere, wl_registry* /*registry*/, std::uint32_t /*name*/,
                    const char* interface, std::uint32_t /*version*/) {
  if (std::strcmp(interface, "zwlr_layer_shell_v1") == 0) {
    *static_cast<bool*>(isThere) = true;
  }
}

void ignoreRemoval(void* /*data*/, wl_registry* /*registry*/, std::uint32_t /*name*/) {}

/// Opens a separate connection to the compositor, so that Qt's is not affected.
bool hasLayerShell() {
  wl_display* const display = wl_display_connect(nullptr);
  if (display == nullptr) {
    return false;
  }
  bool isThere = false;
  const wl_registry_listener listener{.global = noteLayerShell, .global_remove = ignoreRemoval};
  wl_registry* const registry = wl_display_get_registry(display);
  wl_registry_add_listener(registry, &listener, &isThere);
  wl_display_roundtrip(display);
  wl_registry_destroy(registry);
  wl_display_disconnect(display);
  return isThere;
}

} // namespace

std::unique_ptr<WindowPlaces> layerShellPlaces() {
  return hasLayerShell() ? std::make_unique<LayerShellPlaces>() : nullptr;
}

} // namespace tamberline
