#include "app/look.h"
#include "app/private_folder.h"
#include "app/qt_notices.h"
#include "app/single_instance.h"
#include "app/tamberline_app.h"
#include "async/qt_main_queue.h"
#include "i18n/app_language.h"
#include "platform/desktop.h"
#include "platform/posix/termination_signals.h"
#include "platform/preferred_languages.h"
#include "platform/this_machine.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

using namespace tamberline;

constexpr int exitUsage = 2;

TrayIcon::MenuOpener trayMenuOpener() {
  return everyClickOpensTrayMenu() ? TrayIcon::MenuOpener::program : TrayIcon::MenuOpener::tray;
}

int run() {
  // Outlives the application, whose end takes a moment and must not be cut short.
  const TerminationSignals termination([] { QApplication::exit(EXIT_SUCCESS); });
  std::unique_ptr<TamberlineApp> app;
  const SingleInstance instance(runtimeFolder(systemRuntimeFolder()), [&app] {
    if (app) {
      app->raise();
    }
  });
  if (!instance.isFirst()) {
    return EXIT_SUCCESS;
  }
  AppLanguage::choose(AppLanguage::forPreferredLanguages(preferredLanguages()));
  useOwnLookWithoutDesktop();
  const auto queue = std::make_shared<QtMainQueue>();
  app = std::make_unique<TamberlineApp>(thisMachine(queue), queue, trayMenuOpener());
  app->start();
  return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
  if (argc > 1) {
    std::fputs(
        "tamberline: there are no arguments to give; tamberline-replay shows saved reports\n",
        stderr);
    return exitUsage;
  }
  chooseGraphics();
  leaveOutEncodingNotice();
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("tamberline"));
  QApplication::setApplicationDisplayName(QStringLiteral("Tamberline"));
  QApplication::setDesktopFileName(QStringLiteral("org.tamberline.Tamberline"));
  return run();
}
