#include "app/panel_shell.h"

#include "app/panel_placement.h"
#include "desktop/screen_corner.h"

#include <QGuiApplication>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

/// How long after the panel lost keyboard focus the tray may report the click that caused it.
constexpr std::chrono::milliseconds clickArrivalTime{250};

} // namespace

PanelShell::PanelShell(PanelContext::Outside outside, Placement placement)
    : context_(outside), placement_(std::move(placement)), queue_(std::move(outside.queue)) {}

PanelShell::~PanelShell() {
  queue_->cancel(pendingClosingClick_);
}

void PanelShell::open(const TrayPlace& place) {
  const bool isFirstTime = window_ == nullptr;
  if (isOpen() && isHeightFixed() && !window_->isActive()) {
    window_->hide(); // such a desktop brings only newly shown windows to the front
  }
  if (!isOpen()) {
    prepare(place);
  }
  window_->show();
  colorNewAreas();
  placement_.places->bringToFront(*window_);
  if (isFirstTime) {
    context_.panel()->scan();
  }
}

void PanelShell::toggle(const TrayPlace& place) {
  const bool isSameClick = pendingClosingClick_ != 0;
  queue_->cancel(std::exchange(pendingClosingClick_, 0));
  if (isOpen()) {
    close();
  } else if (!isSameClick) {
    open(place);
  }
}

void PanelShell::close() {
  if (window_ != nullptr && isAttached()) {
    window_->hide();
  } else if (window_ != nullptr) {
    window_->close(); // ends the program if it shows nothing else
  }
}

bool PanelShell::isOpen() const {
  return window_ != nullptr && window_->isVisible();
}

/// Prepares the window to be shown in its current position.
void PanelShell::prepare(const TrayPlace& place) {
  const PanelWindow::Style style = wantedStyle();
  if (window_ == nullptr || style != style_) {
    make(style);
  }
  if (isHeightFixed()) {
    frame_->takeFixedHeight();
  } else {
    fitScreen(); // bars may have changed unnoticed
  }
  if (isAttached()) {
    anchor_.icon = place.icon;
    anchor_.click = place.click ? place.click : anchor_.click; // else the tray is where it was
    this->place();
  }
  if (isAttached() && placement_.places->decider() == WindowPlaces::Decider::program) {
    hold_ = placement_.places->holdBesideIcon(*window_, [this] { leave(); });
  }
}

PanelWindow::Style PanelShell::wantedStyle() const {
  const PanelWindow::Kind kind = placement_.kind();
  const bool isRound = kind == PanelWindow::Kind::attached && placement_.places->blendsWindows();
  return {.kind = kind,
          .corners = isRound ? PanelWindow::Corners::round : PanelWindow::Corners::square};
}

void PanelShell::make(PanelWindow::Style style) {
  manager_.reset();
  frame_.reset();
  window_.reset();
  style_ = style;
  window_ = std::make_unique<PanelWindow>(context_, style);
  frame_ = std::make_unique<PanelWindowFrame>(*window_, placement_.freePlace,
                                              placement_.isBoundByScreen);
  context_.sizing()->setGivenHeight(std::nullopt);
  QObject::connect(window_.get(), &QWindow::activeChanged, window_.get(),
                   [this] { closeWhenLeft(); });
  QObject::connect(window_.get(), &QWindow::visibleChanged, window_.get(), [this](bool isVisible) {
    if (!isVisible) {
      hold_.reset(); // however it was closed
    }
  });
  QObject::connect(context_.theme(), &Theme::changed, window_.get(), [this] {
    if (isOpen()) {
      colorNewAreas();
    }
  });
  if (isHeightFixed()) {
    followWindow();
  } else {
    followContent();
  }
}

void PanelShell::colorNewAreas() {
  placement_.places->setColorOfNewAreas(*window_, context_.theme()->window());
}

/// The window is as high as its content, within the limits of the screen.
void PanelShell::followContent() {
  manager_.emplace(*frame_, queue_);
  PanelSizing* const sizing = context_.sizing();
  const auto fit = [this, sizing] { manager_->setTargetHeight(sizing->windowTotalHeight()); };
  QObject::connect(sizing, &PanelSizing::changed, window_.get(), fit);
  QObject::connect(window_.get(), &QWindow::screenChanged, window_.get(),
                   [this](QScreen* screen) { followScreen(screen); });
  QObject::connect(window_.get(), &QWindow::heightChanged, window_.get(),
                   [this] { stayOnScreen(); });
  followScreen(window_->screen());
  frame_->setContentHeightKeepingTop(PanelSize::initialHeight);
  fit();
}

/// The desktop decides the position of the window and, if it is maximized, its size.
void PanelShell::followWindow() {
  PanelSizing* const sizing = context_.sizing();
  const auto fill = [this, sizing] { sizing->setGivenHeight(window_->height()); };
  QObject::connect(window_.get(), &QWindow::heightChanged, window_.get(), fill);
  QObject::connect(window_.get(), &QWindow::windowStateChanged, window_.get(),
                   [this](Qt::WindowState state) {
                     if (state == Qt::WindowMaximized || state == Qt::WindowFullScreen) {
                       frame_->releaseSize();
                     } else if (state == Qt::WindowNoState) {
                       frame_->takeFixedHeight();
                     }
                   });
  fill();
}

/// Null while there is no screen.
void PanelShell::followScreen(QScreen* screen) {
  QObject::disconnect(barsOfScreen_);
  if (screen != nullptr) {
    barsOfScreen_ =
        QObject::connect(screen, &QScreen::availableGeometryChanged, window_.get(), [this] {
          fitScreen();
          stayOnScreen();
        });
  }
  fitScreen();
}

void PanelShell::fitScreen() {
  context_.sizing()->setScreenHeight(frame_->visibleScreenHeight());
}

void PanelShell::stayOnScreen() {
  if (isAttached() && isOpen()) {
    place(); // a panel above its icon grows upwards
  } else {
    frame_->keepOnScreen();
  }
}

void PanelShell::place() {
  if (placement_.places->decider() == WindowPlaces::Decider::corner) {
    holdInCorner();
    return;
  }
  QScreen* screen = screenOfAnchor();
  if (screen != nullptr) {
    const QRect available = placement_.freePlace(*screen);
    window_->setScreen(screen);
    window_->setPosition(panelPosition(anchor_.icon, anchor_.click.value_or(available.topRight()),
                                       window_->size(), available));
  }
}

/// The primary screen if the anchor has no position.
QScreen* PanelShell::screenOfAnchor() const {
  const std::optional<QPoint> place =
      anchor_.icon.isEmpty() ? anchor_.click : std::optional(anchor_.icon.center());
  QScreen* const screen = place ? QGuiApplication::screenAt(*place) : nullptr;
  return screen == nullptr ? QGuiApplication::primaryScreen() : screen;
}

/// Once for each opening: the desktop keeps the window there when its height changes.
void PanelShell::holdInCorner() {
  if (!isOpen()) {
    hold_ = placement_.places->holdInCorner(*window_, screenCornerNextTo(anchor_.click),
                                            {.freeHeightReported =
                                                 [this](double points) {
                                                   frame_->setFreeHeight(points);
                                                   fitScreen();
                                                 },
                                             .clickedOutside = [this] { close(); }});
  }
}

void PanelShell::closeWhenLeft() {
  if (isAttached() && !window_->isActive()) {
    leave();
  }
}

/// An attached panel is only open briefly: a click elsewhere closes it.
void PanelShell::leave() {
  if (!isOpen()) {
    return;
  }
  close();
  queue_->cancel(pendingClosingClick_);
  pendingClosingClick_ = queue_->postLater(clickArrivalTime, [this] { pendingClosingClick_ = 0; });
}

bool PanelShell::isHeightFixed() const {
  return !isAttached() && placement_.places->decider() != WindowPlaces::Decider::program;
}

} // namespace tamberline
