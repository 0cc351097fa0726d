#include "platform/macos/mac_machine.h"
#include "platform/saved/saved_reports.h"
#include "reports/report_decoding.h"
#include "reports/usb_report.h"
#include "support/bus_text.h"
#include "support/fake_machine.h"
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

class MacOfAnyRelease : public testing::Test {
protected:
  std::string usbReport() { return mac.answer(Question::usb); }

  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::atomic<int> mountTableReadings = 0;
  MacMachine mac{machine, [this] {
                   ++mountTableReadings;
                   return std::vector<Mount>{{"/dev/disk4s1", "/Volumes/Data"}};
                 }};
};

TEST_F(MacOfAnyRelease, AnswersWithTheNewerSectionWhereTheOlderIsEmpty) {
  machine->answer(Question::usb, emptyReport);
  machine->answer(Question::newerUsb, hostReport);
  machine->answer(Question::usbHostDevices, registryDump);
  const auto report = decodeReport(usbReport());
  ASSERT_TRUE(report);
  const auto buses = parseUSB(*report, {});
  EXPECT_EQ(busText(buses), "USB31Bus\n"
                            "  Stick high_speed\n");
  EXPECT_EQ(buses.at(0).devices[0].volumes, (std::vector<USBVolume>{{"Data", "/Volumes/Data"}}));
  EXPECT_EQ(machine->questions(),
            (std::vector<Question>{Question::usb, Question::newerUsb, Question::thunderbolt,
                                   Question::usbHostDevices}));
}

TEST_F(MacOfAnyRelease, AnswersWithoutVolumesWhereTheRegistryTellsNone) {
  machine->answer(Question::usb, emptyReport);
  machine->answer(Question::newerUsb, hostReport);
  for (const std::string& dump :
       {std::string(), std::string("no list"), propertyList("<array/>")}) {
    SCOPED_TRACE(dump);
    machine->answer(Question::usbHostDevices, dump);
    const auto report = decodeReport(usbReport());
    ASSERT_TRUE(report);
    EXPECT_EQ(busText(parseUSB(*report, {})), "USB31Bus\n"
                                              "  Stick high_speed\n");
    EXPECT_TRUE(parseUSB(*report, {}).at(0).devices[0].volumes.empty());
  }
}

TEST_F(MacOfAnyRelease, AsksForThePortsWithThunderboltWhereADeviceNeedsThem) {
  machine->answer(Question::usb, emptyReport);
  machine->answer(Question::newerUsb,
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
    machine->answer(Question::thunderbolt, row.thunderbolt);
    const auto report = decodeReport(usbReport());
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

TEST_F(MacOfAnyRelease, KeepsTheOlderSectionWhereItIsNotAnEmptyArray) {
  machine->answer(Question::newerUsb, hostReport);
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
    machine->answer(Question::usb, output);
    EXPECT_EQ(usbReport(), output);
  }
  EXPECT_EQ(machine->questions(), std::vector<Question>(12, Question::usb));
  EXPECT_EQ(mountTableReadings, 0);
}

TEST_F(MacOfAnyRelease, KeepsTheEmptySectionWhereTheNewerOneGivesNothing) {
  machine->answer(Question::usb, emptyReport);
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
    machine->answer(Question::newerUsb, output);
    EXPECT_EQ(usbReport(), emptyReport);
  }
  EXPECT_EQ(machine->askCount(Question::newerUsb), 8U);
  EXPECT_EQ(machine->askCount(Question::usbHostDevices), 0U);
  EXPECT_EQ(mountTableReadings, 0);
}

TEST_F(MacOfAnyRelease, HandsOnANewerSectionThatIsTooLargeSoThatItIsSaid) {
  std::string tooLarge = R"({"SPUSBHostDataType": [{}]})";
  tooLarge.resize(maxReportBytes + 1, ' ');
  machine->answer(Question::usb, emptyReport);
  machine->answer(Question::newerUsb, tooLarge);
  EXPECT_EQ(usbReport().size(), tooLarge.size());
  EXPECT_FALSE(decodeReport(usbReport()));
}

TEST_F(MacOfAnyRelease, PassesEveryOtherAnswerThrough) {
  std::vector<Question> others(questionsOfAScan.begin(), questionsOfAScan.end());
  std::erase(others, Question::usb);
  others.push_back(Question::newerUsb);
  for (const Question question : others) {
    SCOPED_TRACE(nameOf(question));
    machine->answer(question, emptyReport);
    EXPECT_EQ(mac.answer(question), emptyReport);
  }
  EXPECT_EQ(machine->questions(), others);
}

TEST_F(MacOfAnyRelease, LeavesOutThunderboltThatIsNotThere) {
  const struct {
    const char* output;
    const char* expected;
  } table[] = {
      {R"({"SPThunderboltDataType": [{"Thunderbolt": "no_hardware"}]})",
       R"({"SPThunderboltDataType":[]})"},
      {R"({"SPThunderboltDataType": [{"_name": "Thunderbolt", "Thunderbolt": "no_hardware"},
                                     {"_name": "thunderboltusb4_bus_1"}]})",
       R"({"SPThunderboltDataType":[{"_name":"thunderboltusb4_bus_1"}]})"},
      {R"({"SPThunderboltDataType": [{"_name": "no_hardware"}]})",
       R"({"SPThunderboltDataType":[{"_name":"no_hardware"}]})"},
      {R"({"SPThunderboltDataType": [{"Thunderbolt": ["no_hardware"]}]})",
       R"({"SPThunderboltDataType":[{"Thunderbolt":["no_hardware"]}]})"},
  };
  for (const auto& row : table) {
    SCOPED_TRACE(row.output);
    machine->answer(Question::thunderbolt, row.output);
    EXPECT_EQ(mac.answer(Question::thunderbolt), row.expected);
  }
}

TEST_F(MacOfAnyRelease, KeepsThunderboltReportsOfAnotherForm) {
  for (const std::string output : {
           R"({"SPThunderboltDataType": {"Thunderbolt": "no_hardware"}})",
           R"({"SPThunderboltDataType": [{"Thunderbolt": "no_hardware"}, 1]})",
           R"({"SPUSBDataType": [{"Thunderbolt": "no_hardware"}]})",
           R"([{"Thunderbolt": "no_hardware"}])",
           R"({"SPThunderboltDataType": [{"Thunderbolt": "no_hardware"}])",
           "no_hardware",
       }) {
    SCOPED_TRACE(output);
    machine->answer(Question::thunderbolt, output);
    EXPECT_EQ(mac.answer(Question::thunderbolt), output);
  }
}

TEST_F(MacOfAnyRelease, HasNoPortWhereThunderboltIsNotThere) {
  machine->answer(Question::usb, emptyReport);
  machine->answer(Question::newerUsb,
                  R"json({"SPUSBHostDataType": [{"Driver": "AppleT8132USBXHCI", "_items": [
    {"_name": "Stick", "USBKeyLocationID": "0x00100000"}]}]})json");
  // The entry's number would be that of the first port.
  machine->answer(
      Question::thunderbolt,
      R"({"SPThunderboltDataType": [{"_name": "bus_0", "Thunderbolt": "no_hardware"}]})");
  const auto report = decodeReport(usbReport());
  ASSERT_TRUE(report);
  EXPECT_FALSE(parseUSB(*report, {}).at(0).isInternalTBController());
}

TEST_F(MacOfAnyRelease, AnswersNothingWhereTheReportsDoNot) {
  EXPECT_EQ(usbReport(), "");
  EXPECT_EQ(machine->questions(), std::vector<Question>{Question::usb});
}

TEST(MacOfASample, GivesItsDevicesTheVolumesOfAMountTable) {
  MacMachine mac(std::make_shared<SavedReports>(SAMPLES_FOLDER "/studio"), [] {
    return std::vector<Mount>{{"/dev/disk3s1s1", "/"},
                              {"/dev/disk5s1", "/Volumes/Sessions"},
                              {"/dev/disk5s2", "/Volumes/Samples 24:25"},
                              {"/dev/disk6s1", "/Volumes/Handover"}};
  });
  const auto report = decodeReport(mac.answer(Question::usb));
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

TEST_F(MacOfAnyRelease, AnswersSeveralAtOnce) {
  machine->answer(Question::usb, emptyReport);
  machine->answer(Question::newerUsb, hostReport);
  machine->answer(Question::usbHostDevices, registryDump);
  const std::string expected = usbReport();
  std::vector<std::string> answers(4);
  std::vector<std::thread> threads;
  for (std::string& answer : answers) {
    threads.emplace_back([&] { answer = usbReport(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(answers, std::vector<std::string>(4, expected));
  EXPECT_EQ(mountTableReadings, 5);
}

} // namespace
} // namespace tamberline
