#include "acquisition/tool_commands.h"
#include "platform/macos/mac_tool_runner.h"
#include "platform/saved/saved_reports_runner.h"
#include "reports/report_decoding.h"
#include "reports/usb_report.h"
#include "support/bus_text.h"
#include "support/fake_tools.h"
#include "support/property_list_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tamberline {
namespace {

constexpr const char* emptyReport = "{\n  \"SPUSBDataType\" : []\n}\n";

constexpr const char* hostReport = R"json({"SPUSBHostDataType": [
  {"_name": "USB 3.1 Bus", "Driver": "AppleT8132USBXHCI", "_items": [
    {"_name": "Stick", "USBDeviceKeyLinkSpeed": "480 Mb/s", "USBKeyLocationID": "0x02100000"}]}
]})json";

const std::string registryDump =
    propertyList("<array><dict><key>locationID</key><integer>34603008</integer>"
                 "<key>IORegistryEntryChildren</key><array><dict>"
                 "<key>BSD Name</key><string>disk4s1</string></dict></array></dict></array>");

const std::string usbRun = "/usr/sbin/system_profiler SPUSBDataType -json";
const std::string usbHostRun = "/usr/sbin/system_profiler SPUSBHostDataType -json";
const std::string thunderboltRun = "/usr/sbin/system_profiler SPThunderboltDataType -json";
const std::string registryRun = "/usr/sbin/ioreg -a -r -c IOUSBHostDevice -l";

class MacTools : public testing::Test {
protected:
  ToolOutput runUSB() {
    const ToolCommand command = reportCommand("SPUSBDataType");
    return runner.run(command.executable, command.arguments);
  }

  std::shared_ptr<FakeTools> tools = std::make_shared<FakeTools>();
  std::atomic<int> mountTableReadings = 0;
  MacToolRunner runner{tools, [this] {
                         ++mountTableReadings;
                         return std::vector<Mount>{{"/dev/disk4s1", "/Volumes/Data"}};
                       }};
};

TEST_F(MacTools, AnswerWithTheNewerSectionWhereTheOlderIsEmpty) {
  tools->answer("SPUSBDataType.json", emptyReport);
  tools->answer("SPUSBHostDataType.json", hostReport);
  tools->answer("IOUSBHostDevice.plist", registryDump);
  const ToolOutput output = runUSB();
  EXPECT_EQ(output.exitStatus, 0);
  const auto report = decodeReport(output.standardOutput);
  ASSERT_TRUE(report);
  const auto buses = parseUSB(*report, {});
  EXPECT_EQ(busText(buses), "USB31Bus\n"
                            "  Stick high_speed\n");
  EXPECT_EQ(buses.at(0).devices[0].volumes, (std::vector<USBVolume>{{"Data", "/Volumes/Data"}}));
  EXPECT_EQ(tools->commandLines(),
            (std::vector<std::string>{usbRun, usbHostRun, thunderboltRun, registryRun}));
}

TEST_F(MacTools, AnswerWithoutVolumesWhereTheRegistryTellsNone) {
  tools->answer("SPUSBDataType.json", emptyReport);
  tools->answer("SPUSBHostDataType.json", hostReport);
  for (const std::string& dump :
       {std::string(), std::string("no list"), propertyList("<array/>")}) {
    SCOPED_TRACE(dump);
    tools->answer("IOUSBHostDevice.plist", dump);
    const auto report = decodeReport(runUSB().standardOutput);
    ASSERT_TRUE(report);
    EXPECT_EQ(busText(parseUSB(*report, {})), "USB31Bus\n"
                                              "  Stick high_speed\n");
    EXPECT_TRUE(parseUSB(*report, {}).at(0).devices[0].volumes.empty());
  }
}

TEST_F(MacTools, AskForThePortsWithThunderboltWhereADeviceNeedsThem) {
  tools->answer("SPUSBDataType.json", emptyReport);
  tools->answer("SPUSBHostDataType.json",
                R"json({"SPUSBHostDataType": [{"Driver": "AppleT8132USBXHCI", "_items": [
    {"_name": "Stick", "USBKeyLocationID": "0x00100000"},
    {"_name": "Disk", "USBKeyLocationID": "0x01100000"}]}]})json");
  const struct {
    const char* thunderbolt;
    const char* onPorts;
  } rows[] = {
      {R"({"SPThunderboltDataType": [{"_name": "thunderboltusb4_bus_1"}]})", "Disk "},
      {R"({"SPThunderboltDataType": [{"_name": "bus_0"}, {"_name": "bus_1"}]})", "Stick Disk "},
      {R"({"SPThunderboltDataType": []})", ""},
      {"no report", ""},
      {"", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.thunderbolt);
    tools->answer("SPThunderboltDataType.json", row.thunderbolt);
    const auto report = decodeReport(runUSB().standardOutput);
    ASSERT_TRUE(report);
    std::string onPorts;
    std::size_t deviceCount = 0;
    for (const USBBus& bus : parseUSB(*report, {})) {
      for (const USBDevice& device : bus.devices) {
        onPorts += bus.isInternalTBController() ? device.name + " " : "";
        ++deviceCount;
      }
    }
    EXPECT_EQ(onPorts, row.onPorts);
    EXPECT_EQ(deviceCount, 2U);
  }
}

TEST_F(MacTools, KeepTheOlderSectionWhereItIsNotAnEmptyArray) {
  tools->answer("SPUSBHostDataType.json", hostReport);
  for (const std::string output : {
           R"({"SPUSBDataType": [{}]})",
           R"({"SPUSBDataType": [1]})",
           R"({"SPUSBDataType": {}})",
           R"({"SPUSBDataType": null})",
           R"({"SPUSBDataType": ""})",
           R"({"SPUSBHostDataType": []})",
           R"({"Outer": {"SPUSBDataType": []}})",
           "{}",
           "[]",
           R"({"SPUSBDataType": [])",
           "no report",
           "",
       }) {
    SCOPED_TRACE(output);
    tools->answer("SPUSBDataType.json", output);
    EXPECT_EQ(runUSB().standardOutput, output);
  }
  EXPECT_EQ(tools->commandLines(), std::vector<std::string>(12, usbRun));
  EXPECT_EQ(mountTableReadings, 0);
}

TEST_F(MacTools, KeepTheEmptySectionWhereTheNewerOneGivesNothing) {
  tools->answer("SPUSBDataType.json", emptyReport);
  for (const std::string output : {
           R"({"SPUSBHostDataType": []})",
           R"({"SPUSBHostDataType": [1]})",
           R"({"SPUSBHostDataType": {"_name": "USB 3.1 Bus"}})",
           R"({"SPUSBDataType": [{"_name": "USB31Bus"}]})",
           "{}",
           R"([{"SPUSBHostDataType": [{}]}])",
           "no report",
           "",
       }) {
    SCOPED_TRACE(output);
    tools->answer("SPUSBHostDataType.json", output);
    EXPECT_EQ(runUSB().standardOutput, emptyReport);
  }
  EXPECT_EQ(tools->runCount("SPUSBHostDataType.json"), 8U);
  EXPECT_EQ(tools->runCount("IOUSBHostDevice.plist"), 0U);
  EXPECT_EQ(mountTableReadings, 0);
}

TEST_F(MacTools, HandOnANewerSectionThatIsTooLargeSoThatItIsSaid) {
  std::string tooLarge = R"({"SPUSBHostDataType": [{}]})";
  tooLarge.resize(longestReport + 1, ' ');
  tools->answer("SPUSBDataType.json", emptyReport);
  tools->answer("SPUSBHostDataType.json", tooLarge);
  EXPECT_EQ(runUSB().standardOutput.size(), tooLarge.size());
  EXPECT_FALSE(decodeReport(runUSB().standardOutput));
}

TEST_F(MacTools, PassEveryOtherCommandLineThrough) {
  tools->answer("unknown command line", emptyReport);
  tools->answer("SPPowerDataType.json", emptyReport);
  tools->answer("SPUSBHostDataType.json", hostReport);
  const ToolCommand commands[] = {
      reportCommand("SPPowerDataType"),
      {"/usr/sbin/system_profiler", {"SPUSBDataType"}},
      {"/usr/sbin/system_profiler", {"SPUSBDataType", "-json", "-detailLevel"}},
      {"/usr/sbin/system_profiler", {"-json", "SPUSBDataType"}},
      {"system_profiler", {"SPUSBDataType", "-json"}},
  };
  for (const ToolCommand& command : commands) {
    SCOPED_TRACE(command.executable);
    EXPECT_EQ(runner.run(command.executable, command.arguments).standardOutput, emptyReport);
  }
  const ToolCommand host = reportCommand("SPUSBHostDataType");
  EXPECT_EQ(runner.run(host.executable, host.arguments).standardOutput, hostReport);
  EXPECT_EQ(tools->commandLines().size(), 6U);
}

/// Tools that cannot be started, and that tell the two ways of running apart.
class MissingTools final : public ToolRunner {
public:
  ToolOutput run(const std::string& /*executable*/,
                 const std::vector<std::string>& /*arguments*/) override {
    return {};
  }
  ToolOutput runWithErrors(const std::string& executable,
                           const std::vector<std::string>& arguments) override {
    return {"with errors: " + executable + " " + arguments.at(0), 3};
  }
};

TEST_F(MacTools, HandOnThatAToolIsMissing) {
  MacToolRunner missing(std::make_shared<MissingTools>(), [] { return std::vector<Mount>(); });
  const ToolOutput output = missing.run("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"});
  EXPECT_EQ(output.standardOutput, "");
  EXPECT_EQ(output.exitStatus, std::nullopt);
}

TEST_F(MacTools, PassRunsWithErrorsThrough) {
  MacToolRunner missing(std::make_shared<MissingTools>(), [] { return std::vector<Mount>(); });
  const ToolOutput output =
      missing.runWithErrors("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"});
  EXPECT_EQ(output.standardOutput, "with errors: /usr/sbin/system_profiler SPUSBDataType");
  EXPECT_EQ(output.exitStatus, 3);
  tools->answer("SPUSBDataType.json", emptyReport);
  tools->answer("SPUSBHostDataType.json", hostReport);
  EXPECT_EQ(
      runner.runWithErrors("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"}).standardOutput,
      emptyReport);
}

TEST(MacToolsOnASample, GiveItsDevicesTheVolumesOfAMountTable) {
  MacToolRunner runner(std::make_shared<SavedReportsRunner>(SAMPLES_FOLDER "/studio"), [] {
    return std::vector<Mount>{{"/dev/disk3s1s1", "/"},
                              {"/dev/disk5s1", "/Volumes/Sessions"},
                              {"/dev/disk5s2", "/Volumes/Samples 24:25"},
                              {"/dev/disk6s1", "/Volumes/Handover"}};
  });
  const auto report = decodeReport(
      runner.run("/usr/sbin/system_profiler", {"SPUSBDataType", "-json"}).standardOutput);
  ASSERT_TRUE(report);
  const auto buses = parseUSB(*report, {});
  const USBDevice& hub = buses.at(0).devices[0];
  EXPECT_TRUE(hub.volumes.empty());
  EXPECT_EQ(hub.children[0].name, "Quarry Pebble SSD");
  EXPECT_EQ(hub.children[0].volumes,
            (std::vector<USBVolume>{{"Sessions", "/Volumes/Sessions"},
                                    {"Samples 24/25", "/Volumes/Samples 24:25"}}));
  EXPECT_EQ(buses.at(1).devices[0].name, "Pocket Stick 64");
  EXPECT_EQ(buses.at(1).devices[0].volumes,
            (std::vector<USBVolume>{{"Handover", "/Volumes/Handover"}}));
}

TEST_F(MacTools, AnswerSeveralAtOnce) {
  tools->answer("SPUSBDataType.json", emptyReport);
  tools->answer("SPUSBHostDataType.json", hostReport);
  tools->answer("IOUSBHostDevice.plist", registryDump);
  const std::string expected = runUSB().standardOutput;
  std::vector<std::string> answers(4);
  std::vector<std::thread> threads;
  for (std::string& answer : answers) {
    threads.emplace_back([&] { answer = runUSB().standardOutput; });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(answers, std::vector<std::string>(4, expected));
  EXPECT_EQ(mountTableReadings, 5);
}

} // namespace
} // namespace tamberline
