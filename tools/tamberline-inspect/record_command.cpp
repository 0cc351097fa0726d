#include "async/qt_main_queue.h"
#include "commands.h"
#include "platform/background_tasks.h"
#include "platform/posix/termination_signals.h"
#include "recording/recorded_scans.h"
#include "scan_output.h"
#include "single_scan.h"

#include <QCoreApplication>
#include <QSysInfo>

#include <cstdlib>
#include <utility>

namespace tamberline {
namespace {

RecordingEvents printedEvents() {
  return {.stepAdded =
              [](const std::string& name) {
                if (!print(name + "\n")) {
                  QCoreApplication::exit(exitFailure);
                }
              },
          .changeSkipped = reportProblem,
          .ended =
              [](const std::string& reason) {
                reportProblem(reason);
                QCoreApplication::exit(exitFailure);
              }};
}

std::optional<AnonymousSteps> anonymousStepsFor(const RecordCommand& command) {
  return command.isAnonymous
             ? std::optional<AnonymousSteps>(std::vector{QSysInfo::machineHostName().toStdString()})
             : std::nullopt;
}

} // namespace

int run(const RecordCommand& command, const InspectOptions& options) {
  const TerminationSignals termination([] { QCoreApplication::quit(); });
  const MainQueueScope scope(becomeUserInitiatedTask);
  const auto machine = std::make_shared<KeptAnswers>(machineOf(options.reportsFolder));
  const std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.machine = machine, .queue = scope.queue()},
                           .events = eventsOf(options.reportsFolder)});
  Recorder recorder(command.folder, command.maxBytes);
  if (const WriteFailure failure = recorder.begin()) {
    reportProblem("cannot record in '" + command.folder.string() + "': " + *failure);
    return exitFailure;
  }
  const RecordedScans recording({.scanner = scanner,
                                 .machine = machine,
                                 .queue = scope.queue(),
                                 .recorder = std::move(recorder),
                                 .anonymousSteps = anonymousStepsFor(command)},
                                printedEvents());
  const auto scan = scanner->scan();
  return QCoreApplication::exec();
}

} // namespace tamberline
