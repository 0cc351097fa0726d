#include "single_scan.h"

#include "async/qt_main_queue.h"
#include "platform/background_tasks.h"
#include "platform/saved/folder_event_source.h"
#include "platform/saved/saved_reports.h"
#include "platform/this_machine.h"

#include <QCoreApplication>

#include <utility>

namespace tamberline {
namespace {

QCoro::Task<> scanAndQuit(std::shared_ptr<PortScanner> scanner) {
  auto scan = scanner->scan();
  co_await scan;
  QCoreApplication::quit();
}

} // namespace

std::shared_ptr<MachineSource> machineOf(const std::optional<std::filesystem::path>& folder) {
  return folder ? savedMachine(*folder) : sourceOfThisMachine();
}

std::shared_ptr<PortEventSource> eventsOf(const std::optional<std::filesystem::path>& folder) {
  return folder ? std::make_shared<FolderEventSource>(*folder) : eventsOfThisMachine();
}

std::shared_ptr<PortScanner> scanOnce(std::shared_ptr<MachineSource> machine) {
  const MainQueueScope scope(becomeUserInitiatedTask);
  std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.machine = std::move(machine), .queue = scope.queue()},
                           .events = std::make_shared<SilentEventSource>()});
  const auto scan = scanAndQuit(scanner);
  QCoreApplication::exec();
  return scanner;
}

} // namespace tamberline
