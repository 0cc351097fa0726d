#include "app/tamberline_app.h"

#include "app/manual_document.h"
#include "app/menu_bar_icon.h"
#include "i18n/loc.h"

#include <QApplication>
#include <QWindow>

#include <utility>

namespace tamberline {
namespace {

QString asQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

TamberlineApp::TamberlineApp(const ScannerServices& outside, std::shared_ptr<MainQueue> queue,
                             Desktop desktop)
    : tray_(std::move(desktop.tray)), places_(std::move(desktop.places)),
      benchmark_(outside.benchmark), manual_(manualFolder(QCoreApplication::applicationDirPath())),
      scanner_(PortScanner::create(outside)),
      shell_({.scanner = scanner_, .queue = std::move(queue), .actions = actions(outside)},
             {.kind = [this] { return panelKind(); }, .places = places_}),
      animations_(std::move(desktop.animations)) {}

void TamberlineApp::start(StartedBy starter) {
  QApplication::setQuitOnLastWindowClosed(false);
  QObject::connect(qGuiApp, &QGuiApplication::lastWindowClosed, shell_.context().panel(),
                   [this] { endWithoutIcon(); });
  if (tray_) {
    showIcon();
  }
  if (animations_) {
    animations_->follow(
        [this](bool isAllowed) { shell_.context().motion()->setAllowed(isAllowed); });
  }
  if (starter == StartedBy::person) {
    raise();
  }
}

TamberlineApp::~TamberlineApp() {
  tray_.reset();
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    window->hide();
  }
  if (benchmark_) {
    benchmark_->stop();
  }
}

PanelActions TamberlineApp::actions(const ScannerServices& outside) {
  PanelActions actions{
      .openManual = [this] { manual_.show(); },
      .closePanel = [this] { shell_.close(); },
      .quit = [] { QApplication::quit(); },
  };
  if (outside.benchmark) {
    actions.runBenchmark = [this](const std::string& mountPoint) {
      scanner_->runBenchmark(mountPoint);
    };
    actions.stopBenchmark = [this](const std::string& mountPoint) {
      scanner_->stopBenchmark(mountPoint);
    };
  }
  if (outside.ejector) {
    actions.eject = [this](const std::string& mountPoint) { scanner_->eject(mountPoint); };
  }
  return actions;
}

/// The panel is beside its icon if there is one and the desktop supports that; otherwise it is an
/// ordinary window.
PanelWindow::Kind TamberlineApp::panelKind() const {
  const bool canBeAttached = places_->decider() != WindowPlaces::Decider::desktop;
  return hasTray() && canBeAttached ? PanelWindow::Kind::attached : PanelWindow::Kind::ordinary;
}

TrayPlace TamberlineApp::placeOfIcon() const {
  return {.icon = hasTray() ? tray_->iconGeometry() : QRect()};
}

void TamberlineApp::showIcon() {
  tray_->show({.title = QStringLiteral("Tamberline"),
               .iconName = QStringLiteral("org.tamberline.Tamberline-symbolic"),
               .icon = menuBarIcon,
               .openText = asQString(Loc::openPanel()),
               .quitText = asQString(Loc::quit())},
              {.clicked = [this](const TrayPlace& place) { shell_.toggle(place); },
               .openChosen = [this](const TrayPlace& place) { shell_.open(place); },
               .quitChosen = [] { QApplication::quit(); }});
  QObject::connect(shell_.context().theme(), &Theme::changed, shell_.context().panel(),
                   [this] { tray_->redraw(); });
}

/// A program without an icon could not be reached any more after its window is closed, so it ends.
/// A panel that was beside an icon only hides, even if its tray has stopped: bars restart, and
/// starting the program again opens the panel.
void TamberlineApp::endWithoutIcon() const {
  if (!hasTray()) {
    QApplication::quit();
  }
}

} // namespace tamberline
