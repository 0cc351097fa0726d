#pragma once

#include "acquisition/acquisition.h"
#include "async/awaitables.h"
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

/// What the scanner needs of the outside world.
struct ScannerServices {
  Acquisition acquisition;
  std::shared_ptr<PortEventSource> events;
  /// Null where volumes are only shown: nothing is measured or ejected then.
  std::shared_ptr<Benchmark> benchmark = nullptr;
  std::shared_ptr<VolumeEjector> ejector = nullptr;
  /// What tells a volume from another one in its place. Null where that is not looked at.
  std::shared_ptr<VolumeFiles> volumes = nullptr;
  std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
};

/// The one model object: it owns all shown state, and one scan fills it. Every field is read and
/// written on the main thread only and has its own observers. A running scan keeps its scanner
/// alive; the monitor does not.
class PortScanner : public std::enable_shared_from_this<PortScanner> {
public:
  template <typename Value>
  using Published = PublishedField<Value, PortScanner>;

  static std::shared_ptr<PortScanner> create(ScannerServices outside);

  /// Runs one scan; returns at once when one is running already. Never fails: what goes wrong ends
  /// in `errorMessage`. Called on any thread, runs on the main thread. The monitor starts after the
  /// first scan.
  QCoro::Task<> scan();

  /// Measures a volume's speed, after what else goes on with its drive; returns at once when that
  /// volume is being measured. Never fails: what goes wrong ends in `benchmarks`. Called on any
  /// thread, runs on the main thread.
  QCoro::Task<> runBenchmark(std::string mountPoint);

  /// Ends the benchmark of a volume with the chunk that it is at, or while it waits for its drive,
  /// as if nobody had asked for it; nothing happens when it is not being measured. Main thread
  /// only.
  void stopBenchmark(const std::string& mountPoint);

  /// Ejects the drive of a volume and, when that succeeded, scans; returns at once when a volume of
  /// the drive is being ejected or measured. Never fails: what goes wrong stands in `ejectStates`
  /// for four seconds. Called on any thread, runs on the main thread.
  QCoro::Task<> eject(std::string mountPoint);

  /// In the order of the report. A scan publishes field by field, so these can be newer than
  /// `portTree` while it runs.
  Published<std::vector<ThunderboltBus>> thunderboltBuses;
  /// After merging the halves of hubs.
  Published<std::vector<USBBus>> usbBuses;
  /// With stable identifiers; what the views draw from. Changes last.
  Published<std::vector<TreeNode>> portTree;
  /// The last ones that a report told of; a report that says nothing of them clears nothing.
  Published<std::optional<ChargerInfo>> charger;
  Published<std::optional<BatteryInfo>> battery;
  Published<std::vector<FedPortState>> fedPortStates;
  Published<std::int64_t> bestAdapterIndex;
  Published<bool> isScanning;
  /// When the last successful scan ended; absent before the first.
  Published<std::optional<std::chrono::system_clock::time_point>> lastScanned;
  /// Why there is nothing to show; absent as soon as anything was shown.
  Published<std::optional<std::string>> errorMessage;
  /// Benchmarks by mount point. What came of one goes when a scan shows its volume no more, or
  /// another one in its place.
  ObservableField<std::map<std::string, BenchmarkPhase>> benchmarks;
  /// How much of the part under way is done, in percent, by mount point of those that are measured.
  ObservableField<std::map<std::string, int>> testProgress;
  Published<std::vector<HPMPort>> hpmPorts;
  /// By 1-based port number.
  Published<std::map<std::int64_t, PortPowerOut>> portPowerOut;
  /// mA by 1-based port number; read until a scan finds any, and then kept.
  Published<std::map<std::int64_t, std::int64_t>> portCurrentLimitMa;
  /// Ejections by mount point.
  ObservableField<std::map<std::string, EjectState>> ejectStates;
  /// Nodes shown expanded on request. Identifiers are stable, so this holds across scans.
  ObservableField<std::set<std::string>> expandedOverrideIDs;
  /// The target of the last jump while it pulses; absent otherwise.
  ObservableField<std::optional<std::string>> highlightedNodeID;
  /// Every change tells the rows to drop their own expansion.
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
  void publishPower(PowerReading reading);
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
  std::unique_ptr<PortMonitor> monitor_; // after the first scan

  // By mount point:
  std::map<std::string, std::uint64_t> ejectionCounts_;
  std::map<std::string, std::shared_ptr<ActiveRun>> activeRuns_;
  std::map<std::string, VolumeIdentity> measuredVolumes_; // those with a result
  std::map<std::string, VolumeIdentity> shownVolumes_;    // as far as they were looked at

  std::set<std::string> usedDrives_; // by mount point of the volume that is measured or ejected
  Announcement driveIsFree_;
  bool isIdentifying_ = false;
  bool mustIdentifyAgain_ = false;
};

} // namespace tamberline
