#pragma once

#include "acquisition/acquisition.h"
#include "acquisition/fetch_json.h"
#include "acquisition/machine_answer.h"
#include "acquisition/registry_probes.h"
#include "async/awaitables.h"
#include "model/charging_state.h"
#include "model/power_records.h"
#include "model/thunderbolt_records.h"
#include "model/usb_records.h"
#include "model/volume_states.h"
#include "reports/power_report.h"
#include "scanner/observable_field.h"
#include "scanner/port_event_source.h"
#include "scanner/port_monitor.h"
#include "storage/benchmark.h"
#include "storage/volume_ejector.h"
#include "tree/port_tree.h"
#include "tree/tree_node.h"

#include <QCoro/QCoroTask>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tamberline {

/// The services that the scanner needs.
struct ScannerServices {
  Acquisition acquisition;
  std::shared_ptr<PortEventSource> events;
  /// If these are null, volumes are only shown, and not measured or ejected.
  std::shared_ptr<Benchmark> benchmark = nullptr;
  std::shared_ptr<VolumeEjector> ejector = nullptr;
  /// Used to detect that another volume is mounted in place of one that was shown. If null, that is
  /// not checked.
  std::shared_ptr<VolumeFiles> volumes = nullptr;
  std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
};

/// The model of the application: it owns all displayed state, which a scan updates. Each field has
/// its own observers and is used on the main thread only. A running scan keeps the scanner alive;
/// the monitor does not.
class PortScanner : public std::enable_shared_from_this<PortScanner> {
public:
  template <typename Value>
  using Published = PublishedField<Value, PortScanner>;

  static std::shared_ptr<PortScanner> create(ScannerServices outside);

  /// Runs a scan; returns at once if one is already running. Errors are published in
  /// `errorMessage`; nothing is thrown. Can be called on any thread, runs on the main thread. The
  /// monitor starts after the first scan.
  QCoro::Task<> scan();

  /// Measures a volume's speed, after waiting until nothing else uses its drive; returns at once if
  /// the volume is already being measured. Errors are published in `benchmarks`; nothing is thrown.
  /// Can be called on any thread, runs on the main thread.
  QCoro::Task<> runBenchmark(std::string mountPoint);

  /// Stops the benchmark of a volume after the current chunk, or while it waits for the drive,
  /// without a result or an error. Does nothing if the volume is not being measured. Main thread
  /// only.
  void stopBenchmark(const std::string& mountPoint);

  /// Ejects the drive of a volume and scans if that succeeded; returns at once if a volume of the
  /// drive is being ejected or measured. Errors are published in `ejectStates` for four seconds;
  /// nothing is thrown. Can be called on any thread, runs on the main thread.
  QCoro::Task<> eject(std::string mountPoint);

  /// In the order of the report. A scan publishes field by field, so during a scan these can be
  /// newer than `portTree`.
  Published<std::vector<ThunderboltBus>> thunderboltBuses;
  /// With the two halves of each hub merged.
  Published<std::vector<USBBus>> usbBuses;
  /// The tree that is displayed, with stable identifiers. A scan sets it after the fields from
  /// which it is built.
  Published<std::vector<TreeNode>> portTree;
  /// Increases when a scan replaces `portTree` by another tree. A scan of an unchanged machine
  /// writes the field, but not another tree.
  std::uint64_t treeVersion() const { return treeVersion_; }
  /// The last reported values; a report without them does not clear them.
  Published<std::optional<ChargerInfo>> charger;
  Published<std::optional<BatteryInfo>> battery;
  Published<std::vector<FedPortState>> fedPortStates;
  Published<std::int64_t> bestAdapterIndex;
  Published<bool> isScanning;
  /// When the last successful scan ended; absent before the first.
  Published<std::optional<std::chrono::system_clock::time_point>> lastScanned;
  /// Why there is nothing to show; absent after a scan that published a tree.
  Published<std::optional<std::string>> errorMessage;
  /// Benchmarks by mount point. A result is removed when a scan no longer finds its volume, or
  /// finds another one in its place.
  ObservableField<std::map<std::string, BenchmarkPhase>> benchmarks;
  /// The progress of the current phase of running benchmarks, in percent by mount point.
  ObservableField<std::map<std::string, int>> testProgress;
  Published<std::vector<HPMPort>> hpmPorts;
  /// Of the last scan; absent if the machine reports nothing about it.
  Published<std::optional<ChargingState>> charging;
  /// By 1-based port number.
  Published<std::map<std::int64_t, PortPowerOut>> portPowerOut;
  /// mA by 1-based port number. Once a scan has found any, later scans do not read them again.
  Published<std::map<std::int64_t, std::int64_t>> portCurrentLimitMa;
  /// Ejections by mount point.
  ObservableField<std::map<std::string, EjectState>> ejectStates;
  /// The nodes that were expanded on request. Identifiers are stable, so this stays valid across
  /// scans.
  ObservableField<std::set<std::string>> expandedOverrideIDs;
  /// The target of the last search jump while its row pulses; absent otherwise.
  ObservableField<std::optional<std::string>> highlightedNodeID;
  /// Each change makes the rows drop their own expanded state.
  ObservableField<std::int64_t> collapseAllEpoch;

private:
  explicit PortScanner(ScannerServices outside);

  static QCoro::Task<> runScan(std::shared_ptr<PortScanner> self);
  struct ActiveRun;
  class DriveUse;

  static QCoro::Task<> performRun(std::shared_ptr<PortScanner> self, std::string mountPoint);
  static QCoro::Task<BenchmarkPhase> measure(std::shared_ptr<PortScanner> self,
                                             std::string mountPoint,
                                             std::shared_ptr<ActiveRun> run);
  static QCoro::Task<bool> waitForDrive(std::shared_ptr<PortScanner> self, std::string mountPoint,
                                        std::shared_ptr<ActiveRun> run);
  static QCoro::Task<> runEjection(std::shared_ptr<PortScanner> self, std::string mountPoint);
  static QCoro::Task<EjectOutcome> askToEject(std::shared_ptr<PortScanner> self,
                                              std::string mountPoint);
  static QCoro::Task<> identifyVolumes(std::shared_ptr<PortScanner> self);
  static QCoro::Task<std::optional<std::string>> gather(std::shared_ptr<PortScanner> self);
  void publishThunderbolt(const FetchedReport& report);
  void publishUSB(const FetchedReport& report, const LastReading<USBHostDevices>& usbHostDevices);
  void publishPower(PowerReading reading);
  template <typename Value>
  void publishForTree(Published<Value>& field, Value value);
  void publishBatteryController(BatteryController controller);
  std::optional<std::string> publishTree();
  void startMonitor();
  bool isBeingMeasured(const std::string& mountPoint) const;
  BenchmarkOrder orderOf(const std::string& mountPoint, const std::shared_ptr<ActiveRun>& run);
  void publishPhase(const std::string& mountPoint, BenchmarkPhase phase);
  void publishProgress(const std::string& mountPoint, std::optional<int> percent);
  void endRun(const std::string& mountPoint, const ActiveRun& run, BenchmarkPhase phase);
  void publishEjectState(const std::string& mountPoint, std::optional<EjectState> state);
  bool isShown(const std::string& mountPoint) const;
  bool isDriveInUse(const std::string& mountPoint) const;
  bool isDriveMeasured(const std::string& mountPoint) const;
  std::optional<VolumeIdentity> identityOf(const std::string& mountPoint) const;
  void takeIdentities(std::map<std::string, VolumeIdentity> identities);
  void removeVanishedVolumes();

  ScannerServices outside_;

  // The answers from which the records come that are published now:
  AnswerDigest thunderboltAnswer_;
  AnswerDigest usbAnswer_;
  LastReading<USBHostDevices> usbHostDevices_;

  bool isTreeOutdated_ = true; // what it is built from has changed since
  std::uint64_t treeVersion_ = 0;
  std::unique_ptr<PortMonitor> monitor_; // after the first scan

  // By mount point:
  std::map<std::string, std::uint64_t> ejectionCounts_;
  std::map<std::string, std::shared_ptr<ActiveRun>> activeRuns_;
  std::map<std::string, VolumeIdentity> measuredVolumes_; // volumes with a benchmark result
  std::map<std::string, VolumeIdentity> shownVolumes_;    // as far as they have been identified

  std::set<std::string> usedDrives_; // mount points of the volumes that are measured or ejected
  Announcement driveIsFree_;
  bool isIdentifying_ = false;
  bool mustIdentifyAgain_ = false;
};

} // namespace tamberline
