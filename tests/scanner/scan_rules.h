// The allowed results of a scan, implemented a second time and without a scanner: which inventories
// change, which keep and which lose their values, the error, and the tree.
#pragma once

#include "model/usb_host_devices.h"
#include "registry/probe_results.h"
#include "scanner/faulty_tools.h"
#include "scanner/port_scanner.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// The state that a scanner shows, in comparable form: records without identities, the tree with
/// its stable identifiers.
struct ShownState {
  std::string thunderboltBuses = {};
  std::string usbBuses = {};
  std::string portTree = {};
  std::optional<ChargerInfo> charger = {};
  std::optional<BatteryInfo> battery = {};
  std::vector<FedPortState> fedPortStates = {};
  std::int64_t bestAdapterIndex = 0;
  std::vector<HPMPort> hpmPorts = {};
  std::map<std::int64_t, PortPowerOut> portPowerOut = {};
  std::map<std::int64_t, std::int64_t> portCurrentLimitMa = {};
  std::optional<std::string> errorMessage = {};
  std::optional<std::chrono::system_clock::time_point> lastScanned = {};
  bool isScanning = false;

  friend bool operator==(const ShownState&, const ShownState&) = default;
};

ShownState shownBy(const PortScanner& scanner);

/// Which parts differ, for failure messages.
std::string difference(const ShownState& expected, const ShownState& actual);

/// A machine whose tools all succeed, read once.
class ReadMachine {
public:
  explicit ReadMachine(const Answers& answers);

  nlohmann::json thunderbolt;
  nlohmann::json usb;
  nlohmann::json power;
  ContainerIDs containerIDs;
  FedDetails fedDetails;
  std::vector<HPMPort> hpmPorts;
  std::map<std::int64_t, PortPowerOut> portPowerOut;
  std::map<std::int64_t, std::int64_t> portCurrentLimitMa;
};

/// The rules, applied to one scan after another.
class ScanRules {
public:
  void scan(const ReadMachine& machine, const ToolFaults& faults,
            std::chrono::system_clock::time_point now);

  const ShownState& state() const { return state_; }

private:
  void takeReports(const ReadMachine& machine, const ToolFaults& faults);
  void takeProbes(const ReadMachine& machine, const ToolFaults& faults);
  void buildTree();

  ShownState state_;
  std::vector<ThunderboltBus> thunderboltBuses_;
  std::vector<USBBus> usbBuses_;
};

} // namespace tamberline
