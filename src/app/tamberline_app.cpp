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

TamberlineApp::TamberlineApp(const ScannerOutside& outside, std::shared_ptr<MainQueue> queue)
    : hasTray_(QSystemTrayIcon::isSystemTrayAvailable()), benchmark_(outside.benchmark),
      manual_(carriedManuals), scanner_(PortScanner::create(outside)),
      shell_({.scanner = scanner_, .queue = std::move(queue), .actions = actions(outside)},
             {.kind = hasTray_ ? PanelWindow::Kind::attached : PanelWindow::Kind::ordinary,
              .iconGeometry = [this] { return icon_ ? icon_->geometry() : QRect(); }}) {}

void TamberlineApp::start() {
  QApplication::setQuitOnLastWindowClosed(!hasTray_);
  if (hasTray_) {
    installTrayIcon();
  } else {
    shell_.open();
  }
}

TamberlineApp::~TamberlineApp() {
  if (icon_) {
    icon_->hide();
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
  menu_ = std::make_unique<QMenu>();
  menu_->addAction(asQString(Loc::openPanel()), menu_.get(), [this] { shell_.open(); });
  menu_->addAction(asQString(Loc::quit()), menu_.get(), [] { QApplication::quit(); });
  icon_ = std::make_unique<QSystemTrayIcon>(menuBarIcon());
  icon_->setToolTip(QStringLiteral("Tamberline"));
  icon_->setContextMenu(menu_.get());
  QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                   [this](QSystemTrayIcon::ActivationReason reason) {
                     if (reason == QSystemTrayIcon::Trigger) {
                       shell_.toggle();
                     }
                   });
  QObject::connect(shell_.context().theme(), &Theme::changed, icon_.get(),
                   [this] { icon_->setIcon(menuBarIcon()); });
  icon_->show();
}

} // namespace tamberline
