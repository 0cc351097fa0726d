// The application over the real files of a volume, which it starts to test at once. The shutdown
// tests run it as a process: app_under_test FOLDER MEGABYTES. "quit" on standard input presses the
// button of that name, "close" closes the window.

#include "app/tamberline_app.h"
#include "async/qt_main_queue.h"
#include "controls/engine_objects.h"
#include "panel/panel_window.h"
#include "platform/posix/posix_volume_files.h"
#include "platform/posix/termination_signals.h"
#include "support/fake_machine.h"
#include "support/simulated_event_source.h"

#include <QApplication>
#include <QQuickWindow>
#include <QSocketNotifier>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <unistd.h>

namespace {

using namespace tamberline;

PanelController& shownPanel() {
  for (QWindow* window : QGuiApplication::topLevelWindows()) {
    if (auto* view = qobject_cast<QQuickView*>(window)) {
      return *engineObject<PanelController>(*view->engine());
    }
  }
  std::abort(); // the application opens its panel when it starts
}

void obey(const std::string& command) {
  if (command == "quit") {
    shownPanel().quit();
  } else if (command == "close") {
    shownPanel().close();
  }
}

int runOn(const QString& folder, std::int64_t sizeMB) {
  const TerminationSignals termination([] { QApplication::exit(EXIT_SUCCESS); });
  const MainQueueScope scope;
  TamberlineApp app(
      {.acquisition = {.machine = std::make_shared<FakeMachine>(), .queue = scope.queue()},
       .events = std::make_shared<SimulatedEventSource>(),
       .benchmark = std::make_shared<Benchmark>(std::make_shared<PosixVolumeFiles>(),
                                                Benchmark::Setting{.sizeMB = sizeMB})},
      scope.queue(), {});
  app.start();
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [&input] {
    std::string command;
    if (std::getline(std::cin, command)) {
      obey(command);
    } else {
      input.setEnabled(false);
    }
  });
  shownPanel().runBenchmark(folder);
  return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  const QApplication application(argc, argv);
  const QStringList words = QApplication::arguments();
  return words.size() == 3 ? runOn(words[1], words[2].toLongLong()) : EXIT_FAILURE;
}
