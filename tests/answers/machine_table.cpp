#include "answers/machine_table.h"

#include "base/overloaded.h"
#include "base/text.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace tamberline {
namespace {

/// The words of a line; text in quotation marks is one word.
class Words {
public:
  explicit Words(std::string_view line) : line_(line) {
    for (std::string_view rest = trimmed(line); !rest.empty(); rest = trimmed(rest)) {
      const bool isQuoted = rest.starts_with('"');
      const std::size_t start = isQuoted ? 1 : 0;
      const std::size_t end = std::min(rest.find(isQuoted ? '"' : ' ', start), rest.size());
      words_.emplace_back(rest.substr(start, end - start));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }

  bool isEmpty() const { return next_ == words_.size(); }

  std::string take() {
    if (isEmpty()) {
      fail();
    }
    return words_[next_++];
  }

  double takeNumber() { return parseNumber(take()).value_or(0); }
  std::int64_t takeInteger() { return parseDecimal(take()).value_or(0); }

  [[noreturn]] void fail() const { throw std::runtime_error("malformed: " + std::string(line_)); }

private:
  std::string_view line_;
  std::vector<std::string> words_;
  std::size_t next_ = 0;
};

std::size_t indentOf(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

/// Reads a machine line by line. What is indented is below the line above it.
class MachineReader {
public:
  explicit MachineReader(const std::vector<std::string>& lines) : lines_(lines) {}

  DescribedMachine read() {
    while (next_ < lines_.size()) {
      readTop();
    }
    machine_.tree = assignStableIDs(std::move(machine_.tree), "");
    return std::move(machine_);
  }

private:
  void readTop() {
    Words words(lines_[next_]);
    const std::string kind = words.take();
    if (kind == "power") {
      ++next_;
      readPower(words);
    } else {
      machine_.tree.push_back(readNode(0, 0));
    }
  }

  TreeNode readNode(double busMaxGbps, std::int64_t portMa) {
    Words words(lines_[next_]);
    const std::string kind = words.take();
    if (kind == "bus") {
      return readBus(words);
    }
    if (kind == "port") {
      return readPort(words);
    }
    if (kind == "tb") {
      return readThunderbolt(words);
    }
    if (kind == "adapter") {
      ++next_;
      return readAdapter(words);
    }
    if (kind == "usb") {
      const USBDevice device = readUSB(words);
      return std::move(usbDeviceNodes({device}, busMaxGbps, portMa).front());
    }
    words.fail();
  }

  std::vector<TreeNode> readChildren(std::size_t indent, double busMaxGbps, std::int64_t portMa) {
    std::vector<TreeNode> children;
    while (next_ < lines_.size() && indentOf(lines_[next_]) > indent) {
      children.push_back(readNode(busMaxGbps, portMa));
    }
    return children;
  }

  TreeNode readBus(Words& words) {
    const std::size_t indent = indentOf(lines_[next_++]);
    USBBus bus{.rawName = "Bus"};
    const std::string gbps = words.take();
    if (gbps != "?") {
      bus.rawName = gbps == "0.48" ? "USB20Bus" : "USB31Bus";
      bus.unnamedMaxGbps = parseNumber(gbps);
    }
    return TreeNode(TreeNode::USBBusEntry{bus},
                    readChildren(indent, bus.maxSpeedGbps(), bus.portMaxMa()));
  }

  TreeNode readPort(Words& words) {
    const std::size_t indent = indentOf(lines_[next_++]);
    HPMPort controller{.portNumber = words.takeInteger()};
    std::int64_t portMa = 3000;
    bool isChargingOnly = false;
    while (!words.isEmpty()) {
      const std::string word = words.take();
      if (word == "cable") {
        controller.details.cable = CableRatings{.gbpsOfLane = words.takeNumber()};
      } else if (word == "power-cable") {
        controller.details.cable = CableRatings{.maxAmps = words.takeNumber()};
      } else if (word == "ma") {
        portMa = words.takeInteger();
      } else if (word == "failing") {
        controller.details.isFailing = true;
      } else if (word == "charging-only") {
        isChargingOnly = true;
      } else {
        words.fail();
      }
    }
    TreeNode port(TreeNode::TBPort{ThunderboltBus{.busNumber = controller.portNumber}},
                  readChildren(indent, 10, portMa));
    if (isChargingOnly) {
      port.children.emplace_back(TreeNode::ChargingOnly{});
    }
    machine_.hpmPorts.push_back(std::move(controller));
    return port;
  }

  static TrueLink takeLink(Words& words) {
    const double gbps = words.takeNumber();
    const std::int64_t lanes = words.takeInteger();
    return {gbps, gbps, lanes, lanes};
  }

  TreeNode readThunderbolt(Words& words) {
    const std::size_t indent = indentOf(lines_[next_++]);
    ThunderboltDevice device{.name = words.take()};
    while (!words.isEmpty()) {
      const std::string word = words.take();
      if (word == "link") {
        device.link = takeLink(words);
      } else if (word == "limit") {
        const TrueLink limit = takeLink(words);
        device.linkLimit = LinkLimit{
            limit.transmitLanes, *limit.transmitGbps / static_cast<double>(*limit.transmitLanes)};
      } else if (word == "denied") {
        device.isAuthorized = false;
      } else {
        words.fail();
      }
    }
    return TreeNode(TreeNode::TBDevice{device}, readChildren(indent, 40, 0));
  }

  USBDevice readUSB(Words& words) {
    const std::size_t indent = indentOf(lines_[next_++]);
    USBDevice device{.name = words.take(), .untokenedGbps = words.takeNumber()};
    while (!words.isEmpty()) {
      readUSBWord(words, device);
    }
    std::vector<USBDevice> children;
    while (next_ < lines_.size() && indentOf(lines_[next_]) > indent) {
      Words below(lines_[next_]);
      if (below.take() != "usb") {
        below.fail();
      }
      children.push_back(readUSB(below));
    }
    device.children = std::move(children);
    return device;
  }

  void readUSBWord(Words& words, USBDevice& device) {
    const std::string word = words.take();
    if (word == "proven") {
      device.ability.provenGbps = words.takeNumber();
    } else if (word == "limit") {
      device.ability.limitGbps = words.takeNumber();
    } else if (word == "ma") {
      device.busPowerUsed = words.takeInteger();
    } else if (word == "given") {
      device.busPower = words.takeInteger();
    } else if (word == "container") {
      device.containerID = words.take();
    } else if (word == "vendor") {
      device.vendorID = words.take();
    } else if (word == "volumes") {
      device.volumes = {{"Data", "/media/" + device.name}};
    } else if (word == "tested") {
      device.volumes = {{"Data", "/media/" + device.name}};
      const double writeMBps = words.takeNumber();
      machine_.benchmarks["/media/" + device.name] = {
          BenchmarkPhase::Done{writeMBps, words.takeNumber()}};
    } else if (word == "blocked") {
      device.ability.isAuthorized = false;
    } else if (word == "built-in") {
      device.isBuiltIn = true;
    } else if (word == "tunnelled") {
      device.isTunneledDrive = true;
    } else {
      words.fail();
    }
  }

  static TreeNode readAdapter(Words& words) {
    ChargerInfo charger{.name = words.take(), .isConnected = true};
    if (!words.isEmpty()) {
      charger.ratedWatts = words.takeInteger();
    }
    return TreeNode(TreeNode::Charger{charger});
  }

  void readPower(Words& words) {
    ChargingState& state = machine_.charging;
    state.isExternalPowerConnected = true;
    state.hasBattery = true;
    while (!words.isEmpty()) {
      readPowerWord(words, state);
    }
  }

  static void readPowerWord(Words& words, ChargingState& state) {
    const std::string word = words.take();
    if (word == "percent") {
      state.chargePercent = words.takeInteger();
    } else if (word == "charging") {
      state.isCharging = true;
    } else if (word == "idle") {
      state.isCharging = false;
    } else if (word == "full") {
      state.isFullyCharged = true;
    } else if (word == "losing") {
      state.batteryWatts = -words.takeNumber();
    } else if (word == "gaining") {
      state.batteryWatts = words.takeNumber();
    } else if (word == "losing-ma") {
      state.batteryMa = -words.takeInteger();
    } else if (word == "held") {
      state.reasons.notCharging = ChargingReasons::isHeldAtLimit;
    } else if (word == "inhibited") {
      state.reasons.inhibited = ChargingReasons::softwareInhibits;
    } else if (word == "unknown-reason") {
      state.reasons.notCharging = 4;
    } else if (word == "behaviour") {
      state.behaviour = words.take();
    } else if (word == "limits") {
      state.limitStartPercent = words.takeInteger();
      state.limitEndPercent = words.takeInteger();
    } else if (word == "intake") {
      state.maxIntakeWatts = words.takeNumber();
    } else if (word == "no-battery") {
      state.hasBattery = false;
    } else if (word == "on-port") {
      adapterOf(state).portNumber = words.takeInteger();
    } else if (word == "offer") {
      const double volts = words.takeNumber();
      adapterOf(state).offers.push_back(
          {.minVolts = volts, .maxVolts = volts, .amps = words.takeNumber()});
    } else {
      words.fail();
    }
  }

  static AdapterState& adapterOf(ChargingState& state) {
    return state.adapter ? *state.adapter : state.adapter.emplace();
  }

  const std::vector<std::string>& lines_;
  std::size_t next_ = 0;
  DescribedMachine machine_;
};

std::string nameOfNode(const TreeNode& node) {
  return std::visit(
      Overloaded{
          [](const TreeNode::TBPort& port) { return "port " + std::to_string(port.bus.busNumber); },
          [](const TreeNode::TBDevice& entry) { return entry.device.name; },
          [](const TreeNode::USBBusEntry&) { return std::string("bus"); },
          [](const TreeNode::USBDeviceEntry& entry) { return entry.device.name; },
          [](const TreeNode::Charger& entry) { return entry.charger.name; },
          [](const TreeNode::ChargingOnly&) { return std::string("charging only"); },
      },
      node.kind);
}

void addNames(const std::vector<TreeNode>& nodes, NodeNames& names) {
  for (const TreeNode& node : nodes) {
    names.emplace(node.id, nameOfNode(node));
    addNames(node.children, names);
  }
}

} // namespace

std::vector<MachineCase> readMachineTable(const std::string& fileName) {
  std::ifstream file(fileName);
  std::vector<MachineCase> cases;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.empty() || line.starts_with('#')) {
      continue;
    }
    if (line.starts_with("== ")) {
      cases.push_back({.title = line.substr(3)});
    } else if (cases.empty()) {
      throw std::runtime_error(fileName + ":" + std::to_string(number) + ": no title");
    } else if (line.starts_with("-- ")) {
      cases.back().argument = line.substr(3);
    } else if (line.starts_with("=> ")) {
      cases.back().expected.push_back(line.substr(3));
    } else {
      cases.back().machine.push_back(line);
    }
  }
  return cases;
}

AnswerInputs DescribedMachine::inputs() const {
  return {.portTree = tree, .hpmPorts = hpmPorts, .charging = &charging, .benchmarks = benchmarks};
}

DescribedMachine describedMachine(const std::vector<std::string>& lines) {
  return MachineReader(lines).read();
}

NodeNames nodeNames(const std::vector<TreeNode>& tree) {
  NodeNames names;
  addNames(tree, names);
  return names;
}

std::string AnswerLine::text() const {
  std::string line = weight + " " + kind + " " + node;
  if (part != "none") {
    line += ": " + part + (limit == node ? "" : " of " + limit);
  }
  for (const std::string& other : others) {
    line += "; " + other;
  }
  return line;
}

std::vector<std::string> answerLines(const std::vector<Answer>& answers, const NodeNames& names) {
  std::vector<std::string> lines;
  for (const Answer& answer : answers) {
    AnswerLine line{.weight = std::string(nameOf(answer.weight)),
                    .kind = std::string(nameOf(answer.kind)),
                    .node = names.at(answer.nodeID),
                    .part = std::string(nameOf(answer.limitingPart)),
                    .limit = answer.limitingNodeID.empty() ? "" : names.at(answer.limitingNodeID)};
    for (const std::string& other : answer.otherNodeIDs) {
      line.others.push_back(names.at(other));
    }
    lines.push_back(line.text());
  }
  return lines.empty() ? std::vector<std::string>{"none"} : lines;
}

} // namespace tamberline
