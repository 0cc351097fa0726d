#include "app/tamberline_app.h"

#include "app/manual_document.h"

#include <QApplication>
#include <QWindow>

#include <utility>

namespace tamberline {

TamberlineApp::TamberlineApp(const ScannerOutside& outside, std::shared_ptr<MainQueue> queue,
                             TrayIcon::MenuOpener trayMenuOpener)
    : hasTray_(QSystemTrayIcon::isSystemTrayAvailable()), trayMenuOpener_(trayMenuOpener),
      benchmark_(outside.benchmark), manual_(manualFolder(QCoreApplication::applicationDirPath())),
      scanner_(PortScanner::create(outside)),
      shell_({.scanner = scanner_, .queue = std::move(queue), .actions = actions(outside)},
             {.kind = hasTray_ ? PanelWindow::Kind::attached : PanelWindow::Kind::ordinary,
              .iconGeometry = [this] { return trayIcon_ ? trayIcon_->geometry() : QRect(); }}) {}

void TamberlineApp::start() {
  QApplication::setQuitOnLastWindowClosed(!hasTray_);
  if (hasTray_) {
    installTrayIcon();
  } else {
    shell_.open();
  }
}

TamberlineApp::~TamberlineApp() {
  if (trayIcon_) {
    trayIcon_->icon().hide();
  }
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    window->hide();
  }
  if (benchmark_) {
    benchmark_->stop();
  }
}

PanelActions TamberlineApp::actions(const ScannerOutside& outside) {
  PanelActions actions{
      .openManual = [this] { manual_.show(); },
      .closePanel = [this] { shell_.close(); },
      .quit = [] { QApplication::quit(); },
  };
  if (outside.benchmark) {
    actions.runBenchmark = [this](const std::string& mountPoint) {
      scanner_->runBenchmark(mountPoint);
    };
  }
  if (outside.ejector) {
    actions.eject = [this](const std::string& mountPoint) { scanner_->eject(mountPoint); };
  }
  return actions;
}

void TamberlineApp::installTrayIcon() {
  trayIcon_ = std::make_unique<TrayIcon>(TrayIcon::Actions{.toggle = [this] { shell_.toggle(); },
                                                           .open = [this] { shell_.open(); },
                                                           .quit = [] { QApplication::quit(); }},
                                         trayMenuOpener_);
  QObject::connect(shell_.context().theme(), &Theme::changed, &trayIcon_->icon(),
                   [this] { trayIcon_->redraw(); });
  trayIcon_->icon().show();
}

} // namespace tamberline
