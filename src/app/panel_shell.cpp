#include "app/panel_shell.h"

#include "app/panel_placement.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

/// How much later than the loss of the keyboard the tray tells of the click that caused it.
constexpr std::chrono::milliseconds clickArrives{250};

} // namespace

/// The window as the window manager sees it.
class PanelShell::Frame final : public PanelFrame {
public:
  Frame(PanelWindow& window, const Placement& placement) : window_(window), placement_(placement) {}

  double contentHeight() const override { return window_.height(); }

  std::optional<double> visibleScreenHeight() const override {
    if (window_.screen() == nullptr || !placement_.isBoundByScreen) {
      return std::nullopt;
    }
    return window_.screen()->availableGeometry().height();
  }

  /// The system keeps the position of a window that changes its size, which is its top left corner.
  void setContentHeightKeepingTop(double height) override {
    const QSize size(qRound(PanelSize::width), qRound(height));
    window_.setMinimumSize(size);
    window_.setMaximumSize(size);
    window_.resize(size);
  }

private:
  PanelWindow& window_;
  const Placement& placement_;
};

PanelShell::PanelShell(PanelContext::Outside outside, Placement placement)
    : context_(outside), placement_(std::move(placement)), queue_(std::move(outside.queue)) {}

PanelShell::~PanelShell() {
  queue_->cancel(clickThatLeft_);
}

void PanelShell::open() {
  const bool isFirstTime = window_ == nullptr;
  if (isFirstTime) {
    make();
  }
  if (placement_.kind == PanelWindow::Kind::attached && !window_->isVisible()) {
    anchor_ = {placement_.iconGeometry(), QCursor::pos()};
    place();
  }
  window_->show();
  window_->raise();
  window_->requestActivate();
  if (isFirstTime) {
    context_.panel()->scan();
  }
}

void PanelShell::toggle() {
  const bool isSameClick = clickThatLeft_ != 0;
  queue_->cancel(std::exchange(clickThatLeft_, 0));
  if (isOpen()) {
    close();
  } else if (!isSameClick) {
    open();
  }
}

void PanelShell::close() {
  if (window_ != nullptr && placement_.kind == PanelWindow::Kind::attached) {
    window_->hide();
  } else if (window_ != nullptr) {
    window_->close(); // ends a program that has nothing else to show
  }
}

bool PanelShell::isOpen() const {
  return window_ != nullptr && window_->isVisible();
}

void PanelShell::make() {
  window_ = std::make_unique<PanelWindow>(context_, placement_.kind);
  frame_ = std::make_unique<Frame>(*window_, placement_);
  manager_.emplace(*frame_, queue_);
  PanelSizing* const sizing = context_.sizing();
  sizing->setScreenHeight(frame_->visibleScreenHeight());
  const auto fit = [this, sizing] { manager_->setTargetHeight(sizing->windowTotalHeight()); };
  QObject::connect(sizing, &PanelSizing::changed, window_.get(), fit);
  QObject::connect(window_.get(), &QWindow::screenChanged, window_.get(),
                   [this, sizing] { sizing->setScreenHeight(frame_->visibleScreenHeight()); });
  QObject::connect(window_.get(), &QWindow::heightChanged, window_.get(), [this] {
    if (placement_.kind == PanelWindow::Kind::attached && isOpen()) {
      place(); // a panel above its icon grows upwards
    }
  });
  QObject::connect(window_.get(), &QWindow::activeChanged, window_.get(),
                   [this] { closeWhenLeft(); });
  frame_->setContentHeightKeepingTop(PanelSize::initialHeight);
  fit();
}

void PanelShell::place() {
  const auto& [icon, cursor] = anchor_;
  QScreen* screen = QGuiApplication::screenAt(icon.isEmpty() ? cursor : icon.center());
  screen = screen == nullptr ? QGuiApplication::primaryScreen() : screen;
  if (screen != nullptr) {
    window_->setScreen(screen);
    window_->setPosition(panelPosition(icon, cursor, window_->size(), screen->availableGeometry()));
  }
}

/// A panel that belongs to a tray icon is there for a glance: a click elsewhere closes it.
void PanelShell::closeWhenLeft() {
  if (placement_.kind != PanelWindow::Kind::attached || window_->isActive() || !isOpen()) {
    return;
  }
  close();
  queue_->cancel(clickThatLeft_);
  clickThatLeft_ = queue_->postLater(clickArrives, [this] { clickThatLeft_ = 0; });
}

} // namespace tamberline
