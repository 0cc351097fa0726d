#include "scanner/port_scanner.h"

#include "acquisition/registry_probes.h"
#include "i18n/loc.h"
#include "reports/container_hubs.h"
#include "reports/power_report.h"
#include "reports/report_decoding.h"
#include "reports/thunderbolt_report.h"
#include "reports/usb_report.h"
#include "tree/node_identifiers.h"
#include "tree/tree_limits.h"

#include <exception>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds reportLag{2000};

/// The answers to a scan's first four questions.
struct FirstResults {
  FetchedReport thunderbolt;
  FetchedReport usb;
  FetchedReport power;
  LastReading<USBHostDevices> usbHostDevices;
  /// The first failure, in the order above; the other fields are not used then.
  std::optional<ReportError> error;
};

/// The answers of the last scan, to recognise those that have not changed.
struct LastAnswers {
  AnswerDigest thunderbolt;
  AnswerDigest usb;
  LastReading<USBHostDevices> usbHostDevices;
};

QCoro::Task<FirstResults> fetchFirstResults(Acquisition acquisition, LastAnswers last) {
  const auto cancelRequest = std::make_shared<CancelRequest>();
  auto thunderbolt = fetchJSON(acquisition, Question::thunderbolt, cancelRequest, last.thunderbolt);
  auto usb = fetchJSON(acquisition, Question::usb, cancelRequest, last.usb);
  auto power = fetchJSON(acquisition, Question::power, cancelRequest);
  auto usbHostDevices = fetchContainerIDs(acquisition, last.usbHostDevices);

  FirstResults results;
  results.thunderbolt = co_await thunderbolt;
  cancelRequest->isCancelled = results.thunderbolt.error.has_value();
  results.usb = co_await usb;
  cancelRequest->isCancelled = cancelRequest->isCancelled || results.usb.error.has_value();
  results.power = co_await power;
  results.usbHostDevices = co_await usbHostDevices;
  for (const FetchedReport* report : {&results.thunderbolt, &results.usb, &results.power}) {
    if (!results.error) {
      results.error = report->error;
    }
  }
  co_return results;
}

/// Scans again after a delay, because some reports lag behind the event that caused the first scan.
QCoro::Task<> scanTwice(std::weak_ptr<PortScanner> weakScanner, std::shared_ptr<MainQueue> queue) {
  if (const std::shared_ptr<PortScanner> scanner = weakScanner.lock()) {
    auto scan = scanner->scan();
    co_await scan;
  }
  Delay lag(std::move(queue), reportLag);
  co_await lag;
  if (const std::shared_ptr<PortScanner> scanner = weakScanner.lock()) {
    auto scan = scanner->scan();
    co_await scan;
  }
}

} // namespace

PortScanner::PortScanner(ScannerServices outside)
    : outside_(std::move(outside)), driveIsFree_(outside_.acquisition.queue) {}

std::shared_ptr<PortScanner> PortScanner::create(ScannerServices outside) {
  return std::shared_ptr<PortScanner>(new PortScanner(std::move(outside)));
}

QCoro::Task<> PortScanner::scan() {
  return runScan(shared_from_this());
}

QCoro::Task<> PortScanner::runScan(std::shared_ptr<PortScanner> self) {
  HopToMainThread hop(self->outside_.acquisition.queue);
  co_await hop;
  if (self->isScanning.get()) {
    co_return;
  }
  self->isScanning.set(true);
  const bool wasEmpty = self->portTree.get().empty();
  std::optional<std::string> failure;
  try {
    auto gathering = gather(self);
    failure = co_await gathering;
  } catch (const std::exception& error) { // for example if a huge report exhausts memory
    failure = error.what();
  }
  if (failure && wasEmpty) {
    self->errorMessage.set(failure);
  }
  self->isScanning.set(false);
  self->startMonitor();
}

/// Publishes each result as soon as it is available. Returns the failure's text if a report is
/// missing or the tree is too large.
QCoro::Task<std::optional<std::string>> PortScanner::gather(std::shared_ptr<PortScanner> self) {
  const Acquisition acquisition = self->outside_.acquisition;
  auto firstStep = fetchFirstResults(acquisition, {.thunderbolt = self->thunderboltAnswer_,
                                                   .usb = self->usbAnswer_,
                                                   .usbHostDevices = self->usbHostDevices_});
  FirstResults results = co_await firstStep;
  if (results.error) {
    co_return results.error->description;
  }
  self->publishThunderbolt(results.thunderbolt);
  self->publishUSB(results.usb, results.usbHostDevices);
  self->publishPower(parsePower(results.power.content));
  auto fedStep = fetchFedDetails(acquisition);
  FedDetails fedDetails = co_await fedStep;
  self->fedPortStates.set(std::move(fedDetails.ports));
  self->bestAdapterIndex.set(fedDetails.bestAdapterIndex);
  auto controllerStep = fetchHPMPorts(acquisition);
  self->publishForTree(self->hpmPorts, co_await controllerStep);
  auto powerStep = fetchPortPowerOut(acquisition);
  self->publishBatteryController(co_await powerStep);
  if (self->portCurrentLimitMa.get().empty()) {
    auto limitStep = fetchPortCurrentLimits(acquisition);
    self->publishForTree(self->portCurrentLimitMa, co_await limitStep);
  }
  std::optional<std::string> treeError = self->publishTree();
  self->removeVanishedVolumes();
  identifyVolumes(self);
  co_return treeError;
}

/// Publishes the same records again if the report has not changed: parsing a large one takes long.
void PortScanner::publishThunderbolt(const FetchedReport& report) {
  if (report.answer.digest == thunderboltAnswer_) {
    thunderboltBuses.rewrite();
    return;
  }
  isTreeOutdated_ = true;
  thunderboltBuses.set(parseThunderbolt(report.content));
  thunderboltAnswer_ = report.answer.digest;
}

/// As for Thunderbolt; container identifiers decide which hubs are merged.
void PortScanner::publishUSB(const FetchedReport& report,
                             const LastReading<USBHostDevices>& usbHostDevices) {
  const bool isReportKnown = report.answer.digest == usbAnswer_;
  if (isReportKnown && usbHostDevices == usbHostDevices_) {
    usbBuses.rewrite();
    return;
  }
  isTreeOutdated_ = true;
  const std::optional<nlohmann::json> known =
      isReportKnown ? decodeReport(report.answer.text) : std::nullopt;
  const USBHostDevices& devices = usbHostDevices->result;
  usbBuses.set(mergeContainerHubs(
      parseUSB(known ? *known : report.content, devices.containerIDs, devices.abilities)));
  usbAnswer_ = report.answer.digest;
  usbHostDevices_ = usbHostDevices;
}

/// Publishes a field from which the tree is built.
template <typename Value>
void PortScanner::publishForTree(Published<Value>& field, Value value) {
  isTreeOutdated_ = isTreeOutdated_ || !(field.get() == value);
  field.set(std::move(value));
}

void PortScanner::publishPower(PowerReading reading) {
  if (reading.battery) {
    battery.set(std::move(reading.battery));
  }
  if (reading.charger) {
    publishForTree(charger, std::move(reading.charger));
  }
}

void PortScanner::publishBatteryController(BatteryController controller) {
  portPowerOut.set(std::move(controller.portPowerOut));
  if (controller.charging) {
    addPortFacts(hpmPorts.get(), *controller.charging);
  }
  charging.set(std::move(controller.charging));
}

/// Returns the failure's text if the tree would be too large.
std::optional<std::string> PortScanner::publishTree() {
  if (isTreeOutdated_) {
    const PortTreeInputs inputs{.thunderboltBuses = thunderboltBuses.get(),
                                .usbBuses = usbBuses.get(),
                                .charger = charger.get(),
                                .hpmPorts = hpmPorts.get(),
                                .portCurrentLimitMa = portCurrentLimitMa.get()};
    if (exceedsTreeLimits(inputs)) {
      return std::string(Loc::tooManyDevices());
    }
    std::vector<TreeNode> tree = assignStableIDs(buildPortTree(inputs), "");
    isTreeOutdated_ = false;
    ++treeVersion_;
    portTree.set(std::move(tree));
  } else {
    portTree.rewrite();
  }
  lastScanned.set(outside_.now());
  errorMessage.set(std::nullopt);
  return std::nullopt;
}

void PortScanner::startMonitor() {
  if (monitor_ != nullptr) {
    return;
  }
  const std::shared_ptr<MainQueue> queue = outside_.acquisition.queue;
  monitor_ = std::make_unique<PortMonitor>(
      [weakSelf = weak_from_this(), queue] { scanTwice(weakSelf, queue); }, outside_.events, queue);
  monitor_->start();
}

} // namespace tamberline
