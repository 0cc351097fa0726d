#include "scanner_fixture.h"
#include "support/bus_text.h"
#include "support/property_list_text.h"
#include "support/tree_text.h"

#include <stdexcept>
#include <vector>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class PortScannerTest : public ScannerFixture {
protected:
  /// Records the name of every field that a scan publishes, in order.
  void note(auto& field, const std::string& name) {
    observations.push_back(field.observe([this, name] { published.push_back(name); }));
  }

  void noteAllFields() {
    note(scanner->thunderboltBuses, "thunderboltBuses");
    note(scanner->usbBuses, "usbBuses");
    note(scanner->portTree, "portTree");
    note(scanner->charger, "charger");
    note(scanner->battery, "battery");
    note(scanner->fedPortStates, "fedPortStates");
    note(scanner->bestAdapterIndex, "bestAdapterIndex");
    note(scanner->isScanning, "isScanning");
    note(scanner->lastScanned, "lastScanned");
    note(scanner->errorMessage, "errorMessage");
    note(scanner->hpmPorts, "hpmPorts");
    note(scanner->portPowerOut, "portPowerOut");
    note(scanner->charging, "charging");
    note(scanner->portCurrentLimitMa, "portCurrentLimitMa");
  }

  void answerWithAFullMachine() {
    answerWithOnePort();
    machine->answer(Question::power, R"({"SPPowerDataType": [
        {"_name": "spbattery_information"},
        {"_name": "sppower_ac_charger_information", "sppower_ac_charger_name": "96W Adapter",
         "sppower_battery_charger_connected": "TRUE"}]})");
    machine->answer(Question::portControllers,
                    propertyList("<array><dict><key>PortNumber</key><integer>1</integer>"
                                 "<key>PortDescription</key><string>Port-USB-C@1</string>"
                                 "<key>ConnectionActive</key><true/></dict></array>"));
    machine->answer(Question::portPower,
                    propertyList("<array><dict><key>PowerOutDetails</key><array><dict>"
                                 "<key>PortIndex</key><integer>1</integer></dict></array>"
                                 "<key>ExternalConnected</key><true/></dict></array>"));
    machine->answer(Question::deviceTree,
                    propertyList("<dict><key>IORegistryEntryName</key><string>port-usb-c-1</string>"
                                 "<key>port-number</key><data>AQAAAA==</data>"
                                 "<key>acc_bm3-current-limit</key><data>uAsAAA==</data></dict>"));
    machine->answer(Question::powerSource,
                    propertyList("<array><dict><key>FedDetails</key><array><dict/></array>"
                                 "<key>BestAdapterIndex</key><integer>3</integer></dict></array>"));
  }

  std::vector<Observation> observations;
  std::vector<std::string> published;
};

TEST_F(PortScannerTest, KnowsNothingBeforeTheFirstScan) {
  EXPECT_TRUE(scanner->portTree.get().empty());
  EXPECT_FALSE(scanner->isScanning.get());
  EXPECT_FALSE(scanner->lastScanned.get().has_value());
  EXPECT_FALSE(scanner->errorMessage.get().has_value());
  EXPECT_FALSE(scanner->charger.get().has_value());
  EXPECT_FALSE(scanner->highlightedNodeID.get().has_value());
  EXPECT_TRUE(scanner->expandedOverrideIDs.get().empty());
  EXPECT_TRUE(scanner->benchmarks.get().empty());
  EXPECT_TRUE(scanner->ejectStates.get().empty());
  EXPECT_EQ(scanner->collapseAllEpoch.get(), 0);
  EXPECT_EQ(scanner->bestAdapterIndex.get(), 0);
  EXPECT_EQ(events->startCount, 0);
  EXPECT_TRUE(machine->questions().empty());
}

TEST_F(PortScannerTest, AsksFourQuestionsAtOnce) {
  scanner->scan();
  EXPECT_TRUE(scanner->isScanning.get());
  EXPECT_EQ(queue->backgroundCount(), 4U);
  queue->settle();
  const std::vector<Question> questions = machine->questions();
  const std::vector<Question> firstFour(questions.begin(), questions.begin() + 4);
  EXPECT_EQ(firstFour, (std::vector<Question>{Question::thunderbolt, Question::usb, Question::power,
                                              Question::usbHostDevices}));
}

TEST_F(PortScannerTest, AsksTheOtherFourOneAfterAnother) {
  scanner->scan();
  queue->settle();
  const std::vector<Question> questions = machine->questions();
  const std::vector<Question> probes(questions.begin() + 4, questions.end());
  EXPECT_EQ(probes, (std::vector<Question>{Question::powerSource, Question::portControllers,
                                           Question::portPower, Question::deviceTree}));
}

TEST_F(PortScannerTest, PublishesEachFieldInItsTurnAndTheTreeLast) {
  answerWithAFullMachine();
  noteAllFields();
  scan();
  EXPECT_EQ(published,
            (std::vector<std::string>{"isScanning", "thunderboltBuses", "usbBuses", "battery",
                                      "charger", "fedPortStates", "bestAdapterIndex", "hpmPorts",
                                      "portPowerOut", "charging", "portCurrentLimitMa", "portTree",
                                      "lastScanned", "isScanning"}));
}

TEST_F(PortScannerTest, FindsThePortOfTheAdapter) {
  answerWithAFullMachine();
  scan();
  EXPECT_EQ(scanner->charging.get(), (ChargingState{.isExternalPowerConnected = true,
                                                    .adapter = AdapterState{.portNumber = 1}}));
}

TEST_F(PortScannerTest, FindsTheAbilitiesOfDevices) {
  machine->answer(Question::usb, R"({"SPUSBDataType": [{"_items": [
      {"_name": "Disk", "location_id": "0x01100000"}]}]})");
  machine->answer(Question::usbHostDevices,
                  propertyList("<array><dict><key>locationID</key><integer>17825792</integer>"
                               "<key>bcdUSB</key><integer>512</integer></dict></array>"));
  scan();
  EXPECT_EQ(scanner->usbBuses.get().at(0).devices[0].ability,
            (USBAbility{.limitGbps = 0.48, .usbVersion = 0x0200}));
}

TEST_F(PortScannerTest, NoLongerKnowsHowTheComputerIsPoweredIfThatIsNotReported) {
  answerWithAFullMachine();
  scan();
  machine->answer(Question::portPower, "");
  scan();
  EXPECT_EQ(scanner->charging.get(), std::nullopt);
}

TEST_F(PortScannerTest, ClearsTheErrorLast) {
  machine->answer(Question::usb, "");
  scan();
  queue->advance(1s); // the second attempt also fails
  ASSERT_TRUE(scanner->errorMessage.get().has_value());
  answerWithOnePort();
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  noteAllFields();
  scan();
  EXPECT_EQ(published,
            (std::vector<std::string>{"isScanning", "thunderboltBuses", "usbBuses", "portTree",
                                      "lastScanned", "errorMessage", "isScanning"}));
}

TEST_F(PortScannerTest, PublishesOnlyChangedValuesIfTheyCanBeCompared) {
  answerWithAFullMachine();
  scan();
  noteAllFields();
  now += 5s;
  scan();
  EXPECT_EQ(published, (std::vector<std::string>{"isScanning", "thunderboltBuses", "usbBuses",
                                                 "portTree", "lastScanned", "isScanning"}));
}

TEST_F(PortScannerTest, ShowsNewBusesBesideTheOldTreeWhileTheProbesRun) {
  scanner->scan();
  answerWithOnePort();
  for (int tool = 0; tool < 4; ++tool) {
    queue->finishOneBackgroundWork();
  }
  EXPECT_EQ(scanner->thunderboltBuses.get().size(), 1U);
  EXPECT_TRUE(scanner->portTree.get().empty());
  EXPECT_TRUE(scanner->isScanning.get());
  queue->settle();
  EXPECT_EQ(scanner->portTree.get().size(), 1U);
  EXPECT_FALSE(scanner->isScanning.get());
}

TEST_F(PortScannerTest, BuildsTheTreeFromEverythingThatWasFound) {
  answerWithAFullMachine();
  scan();
  EXPECT_EQ(treeText(scanner->portTree.get()), "port 1\n"
                                               "  charger 96W Adapter on Thunderbolt Port 1 via "
                                               "USB-C\n");
  EXPECT_EQ(scanner->portTree.get().front().id, "/port1");
  EXPECT_EQ(scanner->portCurrentLimitMa.get().at(1), 3000);
  EXPECT_EQ(scanner->bestAdapterIndex.get(), 3);
  EXPECT_EQ(scanner->lastScanned.get(), now);
}

TEST_F(PortScannerTest, LeavesTheScannersOwnChargerWithoutAPort) {
  answerWithAFullMachine();
  scan();
  ASSERT_TRUE(scanner->charger.get().has_value());
  EXPECT_FALSE(scanner->charger.get()->connectsViaUSBC);
  EXPECT_FALSE(scanner->charger.get()->portLabel.has_value());
}

TEST_F(PortScannerTest, DropsAScanThatIsAskedForWhileOneRuns) {
  scanner->scan();
  const auto second = scanner->scan();
  EXPECT_TRUE(second.isReady());
  EXPECT_EQ(queue->backgroundCount(), 4U);
  queue->settle();
  EXPECT_EQ(machine->askCount(Question::usb), 1U);
}

TEST_F(PortScannerTest, HopsToTheMainThreadWhenCalledElsewhere) {
  queue->pretendOtherThread(true);
  scanner->scan();
  EXPECT_FALSE(scanner->isScanning.get());
  EXPECT_EQ(queue->backgroundCount(), 0U);
  queue->pretendOtherThread(false);
  queue->runPosted();
  EXPECT_TRUE(scanner->isScanning.get());
  queue->settle();
}

TEST_F(PortScannerTest, NamesTheMissingReportIfNothingWasShownYet) {
  machine->answer(Question::usb, "not JSON");
  scan();
  EXPECT_EQ(scanner->errorMessage.get(), "Could not parse SPUSBDataType");
  EXPECT_TRUE(scanner->portTree.get().empty());
  EXPECT_FALSE(scanner->isScanning.get());
  EXPECT_FALSE(scanner->lastScanned.get().has_value());
  EXPECT_TRUE(events->isRunning());
}

TEST_F(PortScannerTest, NamesTheFirstOfSeveralMissingReports) {
  machine->answer(Question::power, "");
  machine->answer(Question::usb, "");
  scan();
  EXPECT_EQ(scanner->errorMessage.get(), "Could not parse SPUSBDataType");
  machine->answer(Question::thunderbolt, "");
  scan();
  EXPECT_EQ(scanner->errorMessage.get(), "Could not parse SPThunderboltDataType");
}

TEST_F(PortScannerTest, PublishesNothingFromAFailedScan) {
  machine->answer(Question::power, "");
  noteAllFields();
  scan();
  EXPECT_EQ(published, (std::vector<std::string>{"isScanning", "errorMessage", "isScanning"}));
}

TEST_F(PortScannerTest, WaitsForTheToolsThatStillRunWhenOneFailed) {
  machine->answer(Question::thunderbolt, "");
  scanner->scan();
  queue->finishOneBackgroundWork();
  queue->advance(0ms);
  EXPECT_TRUE(scanner->isScanning.get());
  queue->advance(150ms);
  EXPECT_FALSE(scanner->isScanning.get());
  EXPECT_EQ(queue->backgroundCount(), 0U);
}

TEST_F(PortScannerTest, MakesNoSecondAttemptOnceTheScanHasFailed) {
  for (const Question section : {Question::thunderbolt, Question::usb}) {
    machine->answer(section, "no report");
  }
  scanner->scan();
  queue->finishOneBackgroundWork(); // Thunderbolt, before the other three
  queue->advanceWithoutBackground(150ms);
  queue->finishNewestBackgroundWork(); // its second attempt, after which the scan has failed
  queue->settle();
  queue->advance(1s);
  EXPECT_EQ(machine->askCount(Question::thunderbolt), 2U);
  EXPECT_EQ(machine->askCount(Question::usb), 1U);
  EXPECT_FALSE(scanner->isScanning.get());
}

TEST_F(PortScannerTest, KeepsItsContentWhenALaterScanFails) {
  answerWithOnePort();
  scan();
  const auto firstTime = scanner->lastScanned.get();
  now += 60s;
  machine->answer(Question::usb, "");
  machine->answer(Question::thunderbolt, "");
  scan();
  EXPECT_FALSE(scanner->errorMessage.get().has_value());
  EXPECT_EQ(treeText(scanner->portTree.get()), "port 1\n");
  EXPECT_EQ(scanner->lastScanned.get(), firstTime);
}

TEST_F(PortScannerTest, ClearsTheErrorWithTheFirstScanThatSucceeds) {
  machine->answer(Question::usb, "");
  scan();
  answerWithEmptyReports(*machine);
  scan();
  EXPECT_FALSE(scanner->errorMessage.get().has_value());
}

TEST_F(PortScannerTest, RecoversWithinTheScanWhenTheSecondAttemptWorks) {
  answerWithOnePort();
  machine->answerOnce(Question::usb, "half a rep");
  scan();
  EXPECT_FALSE(scanner->errorMessage.get().has_value());
  EXPECT_EQ(scanner->portTree.get().size(), 1U);
}

TEST_F(PortScannerTest, ReadsTheCurrentLimitsOnlyUntilItHasSome) {
  scan();
  scan();
  EXPECT_EQ(machine->askCount(Question::deviceTree), 2U);
  answerWithAFullMachine();
  scan();
  machine->answer(Question::deviceTree, "");
  scan();
  EXPECT_EQ(machine->askCount(Question::deviceTree), 3U);
  EXPECT_EQ(scanner->portCurrentLimitMa.get().at(1), 3000);
}

TEST_F(PortScannerTest, KeepsChargerAndBatteryThatALaterReportDoesNotMention) {
  answerWithAFullMachine();
  scan();
  machine->answer(Question::power, R"({"SPPowerDataType": []})");
  scan();
  ASSERT_TRUE(scanner->charger.get().has_value());
  EXPECT_EQ(scanner->charger.get()->name, "96W Adapter");
  EXPECT_TRUE(scanner->battery.get().has_value());
}

TEST_F(PortScannerTest, GivesTheSameIdentifiersInEveryScan) {
  answerWithAFullMachine();
  scan();
  const std::string id = scanner->portTree.get().front().children.front().id;
  scan();
  EXPECT_EQ(scanner->portTree.get().front().children.front().id, id);
}

TEST_F(PortScannerTest, KeepsTheTreeOfAnUnchangedMachine) {
  answerWithAFullMachine();
  scan();
  const std::uint64_t version = scanner->treeVersion();
  const Uuid busID = scanner->thunderboltBuses.get().front().id;
  now += 5s;
  scan();
  EXPECT_EQ(scanner->treeVersion(), version);
  EXPECT_EQ(scanner->thunderboltBuses.get().front().id, busID) << "the report is not parsed again";
  EXPECT_EQ(scanner->lastScanned.get(), now);
}

TEST_F(PortScannerTest, BuildsTheTreeAgainIfAnyAnswerThatItShowsChanged) {
  const struct {
    Question question;
    std::string answer;
  } rows[] = {
      {Question::thunderbolt, R"({"SPThunderboltDataType": [{"_name": "thunderbolt_bus_3"}]})"},
      {Question::usb, R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [{"_name": "x"}]}]})"},
      {Question::power, R"({"SPPowerDataType": [{"_name": "sppower_ac_charger_information",
          "sppower_ac_charger_name": "30W Adapter", "sppower_battery_charger_connected": "TRUE"}]})"},
      {Question::portControllers, propertyList("<array/>")},
      {Question::usbHostDevices, propertyList("<array/>")},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(nameOf(row.question));
    answerWithAFullMachine();
    machine->answer(Question::usb, R"({"SPUSBDataType": []})");
    machine->answer(Question::usbHostDevices, "");
    scan();
    const std::uint64_t version = scanner->treeVersion();
    scan();
    ASSERT_EQ(scanner->treeVersion(), version);
    machine->answer(row.question, row.answer);
    scan();
    EXPECT_EQ(scanner->treeVersion(), version + 1);
  }
}

/// Says that the devices at 0x00100000 and 0x00200000 are parts of one box.
std::string oneBox() {
  return propertyList("<array>"
                      "<dict><key>locationID</key><integer>1048576</integer>"
                      "<key>kUSBContainerID</key><string>box</string></dict>"
                      "<dict><key>locationID</key><integer>2097152</integer>"
                      "<key>kUSBContainerID</key><string>box</string></dict>"
                      "</array>");
}

TEST_F(PortScannerTest, MergesHubsWhoseContainersAreReportedLater) {
  machine->answer(Question::usb, R"({"SPUSBDataType": [
      {"_name": "USB31Bus", "_items": [{"_name": "Fast", "device_speed": "super_speed",
        "location_id": "0x00100000 / 1"}]},
      {"_name": "USB20Bus", "_items": [{"_name": "Slow", "device_speed": "high_speed",
        "location_id": "0x00200000 / 2"}]}]})");
  scan();
  EXPECT_EQ(scanner->usbBuses.get().size(), 2U);
  machine->answer(Question::usbHostDevices, oneBox());
  scan();
  EXPECT_EQ(busText(scanner->usbBuses.get()), "USB31Bus\n"
                                              "  Fast super_speed\n");
}

TEST_F(PortScannerTest, MergesTheHalvesOfAHub) {
  machine->answer(Question::usb, R"({"SPUSBDataType": [
      {"_name": "USB31Bus", "_items": [{"_name": "Fast", "device_speed": "super_speed",
        "location_id": "0x00100000 / 1"}]},
      {"_name": "USB20Bus", "_items": [{"_name": "Slow", "device_speed": "high_speed",
        "location_id": "0x00200000 / 2", "_items": [{"_name": "Stick"}]}]}]})");
  machine->answer(Question::usbHostDevices, oneBox());
  scan();
  EXPECT_EQ(busText(scanner->usbBuses.get()), "USB31Bus\n"
                                              "  Fast super_speed\n"
                                              "    Stick\n");
}

/// `count` Thunderbolt buses with number 0, and devices on that port.
void answerWithTwinPorts(FakeMachine& machine, int count) {
  std::string buses;
  std::string devices;
  for (int index = 0; index < count; ++index) {
    buses += std::string(index == 0 ? "" : ",") + R"({"_name": "bus_0"})";
    devices += std::string(index == 0 ? "" : ",") + R"({"_name": "x", "location_id": "0x1"})";
  }
  machine.answer(Question::thunderbolt, R"({"SPThunderboltDataType": [)" + buses + "]}");
  machine.answer(Question::usb,
                 R"({"SPUSBDataType": [{"host_controller": "AppleT6020USBXHCI", "_items": [)" +
                     devices + "]}]}");
}

TEST_F(PortScannerTest, SaysThatThereAreMoreDevicesThanCanBeShown) {
  answerWithTwinPorts(*machine, 1'000);
  scan();
  EXPECT_EQ(scanner->errorMessage.get(), "More devices are reported than can be shown");
  EXPECT_TRUE(scanner->portTree.get().empty());
  EXPECT_FALSE(scanner->isScanning.get());
  answerWithTwinPorts(*machine, 10);
  scan();
  EXPECT_EQ(scanner->errorMessage.get(), std::nullopt);
  EXPECT_EQ(scanner->portTree.get().size(), 10U);
  answerWithTwinPorts(*machine, 1'000);
  scan();
  EXPECT_EQ(scanner->portTree.get().size(), 10U) << "what is shown stays";
  scan();
  EXPECT_EQ(scanner->portTree.get().size(), 10U);
}

TEST_F(PortScannerTest, TreatsAnExceptionAsAFailure) {
  const Observation observation =
      scanner->usbBuses.observe([] { throw std::runtime_error("out of memory"); });
  scan();
  EXPECT_EQ(scanner->errorMessage.get(), "out of memory");
  EXPECT_FALSE(scanner->isScanning.get());
}

TEST_F(PortScannerTest, LivesUntilItsScanEnds) {
  const std::weak_ptr<PortScanner> weak = scanner;
  scanner->scan();
  scanner.reset();
  EXPECT_FALSE(weak.expired());
  queue->settle();
  EXPECT_TRUE(weak.expired());
}

} // namespace
} // namespace tamberline
