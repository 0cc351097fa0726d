#include "async/qt_main_queue.h"
#include "commands.h"
#include "platform/background_tasks.h"
#include "platform/event_loop.h"
#include "platform/posix/termination_signals.h"
#include "platform/preferred_languages.h"
#include "scan_output.h"
#include "scan_watch.h"
#include "scanner/port_scanner.h"
#include "single_scan.h"
#include "terminal.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>
#include <variant>

namespace {

using namespace tamberline;

/// The program always writes UTF-8, so Qt's notice about the locale is of no use.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv) {
  useSystemEventLoop();
  const QtMessageHandler usual =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  auto application = std::make_unique<QCoreApplication>(argc, argv);
  qInstallMessageHandler(usual);
  return application;
}

std::shared_ptr<PortScanner> watchedScanner(const InspectOptions& options,
                                            std::shared_ptr<MainQueue> queue) {
  return PortScanner::create(
      {.acquisition = {.machine = machineOf(options.reportsFolder), .queue = std::move(queue)},
       .events = eventsOf(options.reportsFolder)});
}

int showOnce(const InspectOptions& options) {
  const std::shared_ptr<PortScanner> scanner = scanOnce(machineOf(options.reportsFolder));
  const bool isSuccess = reportScanError(*scanner);
  const OutputFormat format = options.printsJson ? OutputFormat::document : OutputFormat::text;
  return print(render(*scanner, format, styleOfStandardOutput())) && isSuccess ? EXIT_SUCCESS
                                                                               : exitFailure;
}

int watch(const InspectOptions& options) {
  const TerminationSignals termination([] { QCoreApplication::quit(); });
  const MainQueueScope scope(becomeUserInitiatedTask);
  const std::shared_ptr<PortScanner> scanner = watchedScanner(options, scope.queue());
  const ScanWatch scanWatch(scanner, scope.queue(),
                            options.printsJson ? OutputFormat::documentInOneLine
                                               : OutputFormat::text);
  const auto scan = scanner->scan();
  return QCoreApplication::exec();
}

int run(const ShowCommand& command, const InspectOptions& options) {
  return command.watches ? watch(options) : showOnce(options);
}

int inspect(const InspectOptions& options, int& argc, char** argv) {
  AppLanguage::choose(
      options.language.value_or(AppLanguage::forPreferredLanguages(preferredLanguages())));
  const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv);
  return std::visit([&](const auto& command) { return run(command, options); }, options.command);
}

} // namespace

int main(int argc, char** argv) {
  const std::optional<InspectOptions> options = parseInspectOptions(argc, argv);
  if (!options) {
    std::fputs("try 'tamberline-inspect --help'\n", stderr);
    return exitTrouble;
  }
  if (options->showsHelp) {
    return print(usageOf(options->command)) ? EXIT_SUCCESS : exitFailure;
  }
  if (options->showsVersion) {
    return print("tamberline-inspect " TAMBERLINE_VERSION "\n") ? EXIT_SUCCESS : exitFailure;
  }
  return inspect(*options, argc, argv);
}
