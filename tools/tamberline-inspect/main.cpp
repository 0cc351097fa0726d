#include "async/qt_main_queue.h"
#include "inspect_options.h"
#include "platform/background_tasks.h"
#include "platform/event_loop.h"
#include "platform/posix/termination_signals.h"
#include "platform/preferred_languages.h"
#include "platform/saved/folder_event_source.h"
#include "platform/saved/saved_reports.h"
#include "platform/this_machine.h"
#include "scan_output.h"
#include "scan_watch.h"
#include "scanner/port_event_source.h"
#include "scanner/port_scanner.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

namespace {

using namespace tamberline;

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

struct Source {
  std::shared_ptr<MachineSource> machine;
  std::shared_ptr<PortEventSource> events;
};

Source sourceOf(const InspectOptions& options) {
  std::shared_ptr<PortEventSource> events = std::make_shared<SilentEventSource>();
  if (options.reportsFolder) {
    if (options.watches) {
      events = std::make_shared<FolderEventSource>(*options.reportsFolder);
    }
    return {savedMachine(*options.reportsFolder), events};
  }
  return {sourceOfThisMachine(), options.watches ? eventsOfThisMachine() : events};
}

/// The program always writes UTF-8, so Qt's notice about the locale is of no use.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
  useSystemEventLoop();
  const QtMessageHandler usual =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  auto application = std::make_unique<QCoreApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return application;
}

std::shared_ptr<PortScanner> scannerOf(const InspectOptions& options,
                                       std::shared_ptr<MainQueue> queue) {
  Source source = sourceOf(options);
  return PortScanner::create(
      {.acquisition = {.machine = std::move(source.machine), .queue = std::move(queue)},
       .events = std::move(source.events)});
}

QCoro::Task<> scanAndQuit(std::shared_ptr<PortScanner> scanner) {
  auto scan = scanner->scan();
  co_await scan;
  QCoreApplication::quit();
}

int inspectOnce(const InspectOptions& options) {
  const MainQueueScope scope(becomeUserInitiatedTask);
  const std::shared_ptr<PortScanner> scanner = scannerOf(options, scope.queue());
  const auto scan = scanAndQuit(scanner);
  QCoreApplication::exec();
  const bool isSuccess = reportScanError(*scanner);
  return print(render(*scanner, options, styleOfStandardOutput())) && isSuccess ? EXIT_SUCCESS
                                                                                : exitFailure;
}

int watch(const InspectOptions& options) {
  const TerminationSignals termination([] { QCoreApplication::quit(); });
  const MainQueueScope scope(becomeUserInitiatedTask);
  const std::shared_ptr<PortScanner> scanner = scannerOf(options, scope.queue());
  const ScanWatch scanWatch(scanner, scope.queue(), options);
  const auto scan = scanner->scan();
  return QCoreApplication::exec();
}

int inspect(const InspectOptions& options, int& argc, char** argv) {
  AppLanguage::choose(
      options.language.value_or(AppLanguage::forPreferredLanguages(preferredLanguages())));
  const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
  return options.watches ? watch(options) : inspectOnce(options);
}

} // namespace

int main(int argc, char** argv) {
  const std::optional<InspectOptions> options = parseInspectOptions(argc, argv);
  if (!options) {
    std::fputs("try 'tamberline-inspect --help'\n", stderr);
    return exitUsage;
  }
  if (options->showsHelp) {
    return print(inspectUsage) ? EXIT_SUCCESS : exitFailure;
  }
  if (options->showsVersion) {
    return print("tamberline-inspect " TAMBERLINE_VERSION "\n") ? EXIT_SUCCESS : exitFailure;
  }
  return inspect(*options, argc, argv);
}
