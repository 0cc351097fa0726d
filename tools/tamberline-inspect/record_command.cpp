#include "acquisition/kept_answers.h"
#include "anonymity/anonymiser.h"
#include "async/qt_main_queue.h"
#include "commands.h"
#include "inspect/document.h"
#include "platform/background_tasks.h"
#include "platform/posix/termination_signals.h"
#include "platform/saved/recording.h"
#include "platform/saved/saved_files.h"
#include "scan_output.h"
#include "single_scan.h"

#include <QCoreApplication>
#include <QSysInfo>
#include <nlohmann/json.hpp>

#include <chrono>
#include <cstdlib>
#include <utility>

namespace tamberline {
namespace {

/// Adds a step after each scan whose result differs from the one before. Ends the event loop with a
/// failure if a step cannot be written. Outlives the event loop.
class RecordedScans {
public:
  RecordedScans(std::shared_ptr<PortScanner> scanner, std::shared_ptr<KeptAnswers> machine,
                std::shared_ptr<MainQueue> queue, const RecordCommand& command)
      : scanner_(std::move(scanner)), machine_(std::move(machine)), queue_(std::move(queue)),
        recorder_(command.folder),
        observation_(scanner_->isScanning.observe([this] { handleScanState(); })) {
    if (command.isAnonymous) {
      anonymiser_.emplace(std::vector{QSysInfo::machineHostName().toStdString()});
    }
  }

  WriteFailure begin() { return recorder_.begin(); }

private:
  /// On the next event-loop iteration. By then the monitor is running after the first scan, so who
  /// reads the name of the first step misses no change.
  void handleScanState() {
    if (!scanner_->isScanning.get()) {
      queue_->post([this] { recordIfChanged(); });
    }
  }

  void recordIfChanged() {
    std::string result = inspectionDocument(*scanner_).dump(
        -1, ' ', /*ensure_ascii=*/true, nlohmann::json::error_handler_t::replace);
    if (result == lastResult_) {
      return;
    }
    lastResult_ = std::move(result);
    if (!addStep()) {
      QCoreApplication::exit(EXIT_FAILURE);
    }
  }

  bool addStep() {
    std::optional<Answers> answers = machine_->answers();
    if (anonymiser_) {
      answers = anonymiser_->anonymised(*answers);
    }
    if (!answers || missingReport(*answers)) {
      reportProblem("a report is missing or cannot be read, so this change is left out");
      return true;
    }
    if (const WriteFailure failure = recorder_.add(*answers, std::chrono::system_clock::now())) {
      reportProblem("cannot record: " + *failure);
      return false;
    }
    return print(recorder_.lastName() + "\n");
  }

  std::shared_ptr<PortScanner> scanner_;
  std::shared_ptr<KeptAnswers> machine_;
  std::shared_ptr<MainQueue> queue_;
  Recorder recorder_;
  std::optional<Anonymiser> anonymiser_;
  std::string lastResult_;
  Observation observation_;
};

} // namespace

int run(const RecordCommand& command, const InspectOptions& options) {
  const TerminationSignals termination([] { QCoreApplication::quit(); });
  const MainQueueScope scope(becomeUserInitiatedTask);
  const auto machine = std::make_shared<KeptAnswers>(machineOf(options.reportsFolder));
  const std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.machine = machine, .queue = scope.queue()},
                           .events = eventsOf(options.reportsFolder)});
  RecordedScans recording(scanner, machine, scope.queue(), command);
  if (const WriteFailure failure = recording.begin()) {
    reportProblem("cannot record in '" + command.folder.string() + "': " + *failure);
    return exitFailure;
  }
  const auto scan = scanner->scan();
  return QCoreApplication::exec();
}

} // namespace tamberline
