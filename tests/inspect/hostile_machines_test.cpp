#include "inspect/answer_text.h"
#include "inspect/panel_text.h"
#include "inspect/sample_scans.h"
#include "support/hostile_machines.h"
#include "views/panel_inputs.h"
#include "views/scan_answers.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>

namespace tamberline {
namespace {

void countNames(const Document& nodes, std::map<std::string, int>& counts) {
  for (const Document& node : nodes) {
    if (node.contains("device")) {
      ++counts[node["device"]["name"]];
    }
    countNames(node["children"], counts);
  }
}

/// How often each device is in the tree.
std::map<std::string, int> deviceCounts(const Document& document) {
  std::map<std::string, int> counts;
  countNames(document["portTree"], counts);
  return counts;
}

void collectIDs(const Document& nodes, std::multiset<std::string>& ids) {
  for (const Document& node : nodes) {
    ids.insert(node["id"].get<std::string>());
    collectIDs(node["children"], ids);
  }
}

std::multiset<std::string> identifiers(const Document& document) {
  std::multiset<std::string> ids;
  collectIDs(document["portTree"], ids);
  return ids;
}

bool areAllDifferent(const std::multiset<std::string>& ids) {
  return std::set<std::string>(ids.begin(), ids.end()).size() == ids.size();
}

std::string start(const std::string& name) {
  return name.substr(0, 60) + " (" + std::to_string(name.size()) + " bytes)";
}

TEST(HostileNames, AreUnchangedInTheDocument) {
  for (const std::string& name : hostileNames()) {
    SCOPED_TRACE(start(name));
    Scan scan;
    answerWithNameEverywhere(*scan.machine, name);
    const Document document = scan.run();
    EXPECT_EQ(deviceCounts(document)[name], 3) << "one by Thunderbolt, two by USB";
    EXPECT_EQ(at(document, "/usbBuses/0/devices/0/volumes/0/name"), name);
    EXPECT_EQ(Document::parse(document.dump()), document);
    EXPECT_TRUE(areAllDifferent(identifiers(document)));
    EXPECT_EQ(scan.run(), document);
  }
}

TEST(HostileNames, AreHarmlessInATerminal) {
  for (const std::string& name : hostileNames()) {
    SCOPED_TRACE(start(name));
    Scan scan;
    answerWithNameEverywhere(*scan.machine, name);
    scan.run();
    const std::string text =
        answerText(answersOf(*scan.scanner), /*useColors=*/false) +
        panelText(describePanel(panelInputs(*scan.scanner)), /*useColors=*/false);
    EXPECT_LT(text.size(), 20'000U);
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      EXPECT_TRUE(line.find_first_of("\x01\x07\x1b\r\t\x7f") == std::string::npos) << line;
      EXPECT_TRUE(line.find("\u202e") == std::string::npos) << line;
      EXPECT_TRUE(line.find("\u2066") == std::string::npos) << line;
    }
  }
}

TEST(HostileMachines, MayHave255Ports) {
  Scan scan;
  answerWithManyPorts(*scan.machine, 255);
  const Document document = scan.run();
  ASSERT_EQ(document["portTree"].size(), 255U);
  for (std::size_t index = 0; index < 255; ++index) {
    const Document& port = document["portTree"][index];
    const std::string number = std::to_string(index + 1);
    EXPECT_EQ(port["id"], "/port" + number);
    ASSERT_EQ(port["children"].size(), 1U);
    EXPECT_EQ(at(port, "/children/0/device/name"), "Device of port " + number);
  }
}

TEST(HostileMachines, MayHaveFiveThousandDevicesAndLoseNone) {
  constexpr int deviceCount = 5'000;
  Scan scan;
  answerWithManyDevices(*scan.machine, deviceCount);
  const Document document = scan.run();
  const std::map<std::string, int> counts = deviceCounts(document);
  EXPECT_EQ(counts.size(), static_cast<std::size_t>(deviceCount));
  EXPECT_EQ(document["searchEntries"].size(), static_cast<std::size_t>(deviceCount));
  EXPECT_TRUE(areAllDifferent(identifiers(document)));
  EXPECT_EQ(identifiers(scan.run()), identifiers(document));
}

TEST(HostileMachines, MayHaveAHubBehindItself) {
  Scan scan;
  answerWithHubThatHoldsItself(*scan.machine);
  EXPECT_EQ(deviceCounts(scan.run()), (std::map<std::string, int>{{"Outer", 1},
                                                                  {"Middle", 1},
                                                                  {"Inner", 1},
                                                                  {"Keys", 1},
                                                                  {"Mouse", 1},
                                                                  {"Camera", 1},
                                                                  {"Disk", 1}}));
}

TEST(HostileMachines, MayHaveALongChainOfHubsThatMergeIntoEachOther) {
  constexpr unsigned hubCount = 3'000;
  Scan scan;
  Containers containers;
  std::vector<nlohmann::json> buses;
  for (unsigned hub = 0; hub < hubCount; ++hub) {
    nlohmann::json fastHalf = located(deviceEntry("Fast " + std::to_string(hub)), 2 * hub + 1);
    fastHalf["device_speed"] = "super_speed";
    buses.push_back(
        busEntry({located(deviceEntry("Slow " + std::to_string(hub), {fastHalf}), 2 * hub)}));
    containers.emplace_back(2 * hub, "box " + std::to_string(hub));
    containers.emplace_back(2 * hub + 1, "box " + std::to_string(hub + 1));
  }
  answerWithUSBEntries(*scan.machine, buses);
  answerWithContainers(*scan.machine, containers);
  EXPECT_EQ(deviceCounts(scan.run()).size(), 2U * hubCount);
}

TEST(Twins, HaveDistinctIdentifiersThatTheNextScanKeeps) {
  constexpr int twinCount = 300;
  Scan scan;
  answerWithTwins(*scan.machine, twinCount);
  const Document document = scan.run();
  const Document& twins = at(document, "/portTree/0/children");
  ASSERT_EQ(twins.size(), static_cast<std::size_t>(twinCount));
  EXPECT_EQ(twins[0]["id"], "/port1/usb:0x1111:0x2222:S");
  EXPECT_EQ(twins[1]["id"], "/port1/usb:0x1111:0x2222:S#1");
  EXPECT_EQ(twins[299]["id"], "/port1/usb:0x1111:0x2222:S#299");
  EXPECT_TRUE(areAllDifferent(identifiers(document)));
  EXPECT_EQ(scan.run(), document);
}

/// A key may spell the suffix of an identical device's key, or the path to a device behind another.
TEST(Twins, AreNotLostWhenADeviceSpellsTheIdentifierOfAnother) {
  Scan scan;
  answerWithThunderboltEntries(*scan.machine, {portEntry(0)});
  answerWithUSBEntries(
      *scan.machine,
      {ownBusEntry({located(deviceEntry("a", {deviceEntry("b")}), 0x00100000),
                    located(deviceEntry("a"), 0x00200000), located(deviceEntry("a#1"), 0x00300000),
                    located(deviceEntry("a/usb:b"), 0x00400000)})});
  const Document document = scan.run();
  EXPECT_EQ(deviceCounts(document),
            (std::map<std::string, int>{{"a", 2}, {"b", 1}, {"a#1", 1}, {"a/usb:b", 1}}));
  EXPECT_EQ(at(document, "/panel/cards/0/rows").size(), 4U);
  EXPECT_EQ(document["searchEntries"].size(), 5U);
}

} // namespace
} // namespace tamberline
