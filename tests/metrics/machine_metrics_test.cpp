#include "metrics/machine_metrics.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>
#include <sstream>
#include <string>

namespace tamberline {
namespace {

using nlohmann::json;

json deskDocument() {
  return json::parse(R"json({
    "portPowerOut": {"1": {"usedWatts": 8.5}},
    "ports": [{"portNumber": 1, "agreedPower": {"watts": 15}}],
    "answers": [{"kind": "slowHub", "weight": "attention"}, {"kind": "slowHub", "weight": "attention"},
                {"kind": "unknownAbility", "weight": "note"}],
    "portTree": [
      {"kind": "tbPort", "bus": {"busNumber": 1, "port": {"isConnected": true}}, "children": [
        {"kind": "charger", "charger": {"ratedWatts": 96, "currentWatts": 58}, "children": []},
        {"kind": "usbDevice", "busMaxGbps": 10,
         "device": {"name": "SSD", "vendorID": "0x1", "productID": "0x2", "serialNumber": "S1",
                    "speedGbps": 5, "busPowerUsed": 900}, "children": []},
        {"kind": "usbDevice", "busMaxGbps": 10,
         "device": {"name": "SSD", "vendorID": "0x1", "productID": "0x2", "serialNumber": "S2",
                    "speedGbps": 10, "busPowerUsed": 100}, "children": []}]},
      {"kind": "tbPort", "bus": {"busNumber": 2, "port": {}}, "children": []},
      {"kind": "usbBus", "bus": {}, "children": [
        {"kind": "usbDevice", "device": {"name": "Mouse", "busPowerUsed": 100}, "children": []}]}]
  })json");
}

/// The samples without the comments.
std::string samplesOf(const json& document) {
  std::istringstream text(openMetricsText(machineMetrics(document)));
  std::string samples;
  for (std::string line; std::getline(text, line);) {
    samples += line.starts_with("#") ? "" : line + "\n";
  }
  return samples;
}

TEST(MachineMetrics, HaveTheFiguresOfTheMachine) {
  const std::string ssd = R"({port="1",device="SSD",vendor="0x1",product="0x2",index=)";
  EXPECT_EQ(samplesOf(deskDocument()),
            "tamberline_port_connected{port=\"1\"} 1\n"
            "tamberline_port_connected{port=\"2\"} 0\n"
            "tamberline_port_devices{port=\"1\"} 2\n"
            "tamberline_port_devices{port=\"2\"} 0\n"
            "tamberline_port_devices{port=\"none\"} 1\n"
            "tamberline_port_rated_power_watts{port=\"1\"} 5\n"
            "tamberline_port_rated_power_watts{port=\"2\"} 0\n"
            "tamberline_port_rated_power_watts{port=\"none\"} 0.5\n"
            "tamberline_port_measured_power_watts{port=\"1\"} 8.5\n"
            "tamberline_port_agreed_power_watts{port=\"1\"} 15\n"
            "tamberline_link_speed_bytes_per_second" +
                ssd +
                "\"0\"} 625000000\n"
                "tamberline_link_speed_bytes_per_second" +
                ssd +
                "\"1\"} 1250000000\n"
                "tamberline_link_greatest_speed_bytes_per_second" +
                ssd +
                "\"0\"} 1250000000\n"
                "tamberline_link_greatest_speed_bytes_per_second" +
                ssd +
                "\"1\"} 1250000000\n"
                "tamberline_links_omitted 0\n"
                "tamberline_adapter_connected 1\n"
                "tamberline_adapter_rated_power_watts 96\n"
                "tamberline_adapter_delivered_power_watts 58\n"
                "tamberline_answers{kind=\"slowHub\",weight=\"attention\"} 2\n"
                "tamberline_answers{kind=\"unknownAbility\",weight=\"note\"} 1\n");
}

TEST(MachineMetrics, ContainNoSerialNumber) {
  EXPECT_EQ(samplesOf(deskDocument()).find("S1"), std::string::npos);
}

TEST(MachineMetrics, AreThoseOfAnEmptyMachineForAnythingElse) {
  for (const char* document : {"{}", "[]", "null", R"({"portTree": {}, "answers": 1})"}) {
    EXPECT_EQ(samplesOf(json::parse(document)),
              "tamberline_links_omitted 0\ntamberline_adapter_connected 0\n");
  }
}

TEST(MachineMetrics, AreBounded) {
  json document = deskDocument();
  json& devices = document["portTree"][0]["children"];
  for (int number = 0; number < 10'000; ++number) {
    devices.push_back(
        {{"kind", "usbDevice"}, {"device", {{"name", std::to_string(number)}, {"speedGbps", 5}}}});
    document["portTree"].push_back(
        {{"kind", "tbPort"}, {"bus", {{"busNumber", number + 3}}}, {"children", json::array()}});
    document["answers"].push_back({{"kind", std::to_string(number)}, {"weight", "note"}});
  }
  const std::string samples = samplesOf(document);
  EXPECT_LT(std::count(samples.begin(), samples.end(), '\n'), 700);
  EXPECT_NE(samples.find("tamberline_links_omitted 9874\n"), std::string::npos);
}

/// The samples without their values that are there twice.
std::string repeatedIn(const std::string& samples) {
  std::istringstream lines(samples);
  std::set<std::string> seen;
  std::string repeated;
  for (std::string line; std::getline(lines, line);) {
    const std::string labels = line.substr(0, line.rfind(' '));
    repeated += seen.insert(labels).second ? "" : labels + "\n";
  }
  return repeated;
}

TEST(MachineMetrics, AreUniqueWhateverDevicesAreCalled) {
  const std::string half(100, 'A');
  json document = deskDocument();
  for (const std::string& name :
       std::vector<std::string>{"Disk\u200b", "Disk\u2060", "Disk", " Disk ", half + "1" + half,
                                half + "2" + half, "index=\"0\"", "\\", "\n"}) {
    document["portTree"][0]["children"].push_back(
        {{"kind", "usbDevice"}, {"device", {{"name", name}, {"speedGbps", 5}}}});
  }
  const std::string samples = samplesOf(document);
  EXPECT_EQ(repeatedIn(samples), "");
  EXPECT_EQ(std::count(samples.begin(), samples.end(), '\n'), 29);
}

TEST(MachineMetrics, AreUniqueWhateverIsThereTwice) {
  json document = deskDocument();
  json& tree = document["portTree"];
  tree.push_back(tree[0]);
  tree.push_back({{"kind", "tbPort"}, {"children", tree[0]["children"]}});
  EXPECT_EQ(repeatedIn(samplesOf(document)), "");
}

} // namespace
} // namespace tamberline
