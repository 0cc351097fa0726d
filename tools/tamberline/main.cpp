#include "app/display_guard.h"
#include "app/look.h"
#include "app/private_folder.h"
#include "app/qt_notices.h"
#include "app/single_instance.h"
#include "app/tamberline_app.h"
#include "async/qt_main_queue.h"
#include "i18n/app_language.h"
#include "platform/background_tasks.h"
#include "platform/desktop.h"
#include "platform/posix/termination_signals.h"
#include "platform/preferred_languages.h"
#include "platform/this_machine.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

namespace {

using namespace tamberline;

constexpr int exitUsage = 2;

TamberlineApp::Desktop makeDesktop() {
  const std::shared_ptr<WindowPlaces> places = makeWindowPlaces();
  return {.tray = makeDesktopTray(places), .places = places, .animations = makeAnimationSetting()};
}

int run(bool isInBackground) {
  // Outlives the application, whose shutdown takes a moment and must not be interrupted.
  const TerminationSignals termination([] { QApplication::exit(EXIT_SUCCESS); });
  std::unique_ptr<TamberlineApp> app;
  const SingleInstance instance(
      runtimeFolder(systemRuntimeFolder()),
      [&app] {
        if (app) {
          app->raise();
        }
      },
      isInBackground ? SingleInstance::Wish::nothing : SingleInstance::Wish::raise);
  if (!instance.isFirst()) {
    return EXIT_SUCCESS;
  }
  AppLanguage::choose(AppLanguage::forPreferredLanguages(preferredLanguages()));
  applyDefaultLookWithoutDesktop();
  const MainQueueScope scope(becomeUserInitiatedTask);
  app = std::make_unique<TamberlineApp>(thisMachine(scope.queue()), scope.queue(), makeDesktop());
  app->start(isInBackground || !opensPanelOnStart() ? TamberlineApp::StartedBy::session
                                                    : TamberlineApp::StartedBy::person);
  const int status = QApplication::exec();
  app.reset(); // waits for tests of volumes; ending the queue does not
  return status;
}

} // namespace

int main(int argc, char** argv) {
  if (argc > 1) {
    std::fputs("tamberline: it takes no arguments; 'man tamberline' says what it does, and "
               "tamberline-replay shows saved reports\n",
               stderr);
    return exitUsage;
  }
  const bool isInBackground = takeStartInBackground();
  chooseGraphics();
  startWithoutFocus();
  suppressEncodingNotice();
  auto guard = std::make_optional<DisplayGuard>(QStringLiteral("tamberline"));
  const QApplication application(argc, argv);
  guard.reset();
  QApplication::setApplicationName(QStringLiteral("tamberline"));
  QApplication::setApplicationDisplayName(QStringLiteral("Tamberline"));
  QApplication::setDesktopFileName(QStringLiteral("org.tamberline.Tamberline"));
  return run(isInBackground);
}
