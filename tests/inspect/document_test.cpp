#include "inspect/document_parts.h"
#include "inspect/sample_scans.h"
#include "support/language_scope.h"
#include "support/property_list_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

TEST(Document, OfAScanThatFoundNothingHasEmptyMembers) {
  EXPECT_EQ(jsonText(Scan().run()), normalized(R"({
    "errorMessage": null, "thunderboltBuses": [], "usbBuses": [], "charger": null,
    "battery": null, "hpmPorts": [], "fedPortStates": [], "bestAdapterIndex": 0,
    "portPowerOut": {}, "portCurrentLimitMa": {}, "ports": [], "charging": null,
    "deviceAbilities": [], "linkLimits": [], "answers": [], "portTree": [], "allContainerIDs": [],
    "searchEntries": [],
    "panel": {"state": "empty", "message": "No ports detected", "cards": []}
  })"));
}

TEST(Document, OfAFailedScanSaysWhatFailed) {
  Scan scan;
  scan.machine->answer(Question::usb, "no JSON");
  const Document document = scan.run();

  EXPECT_EQ(document["errorMessage"], "Could not parse SPUSBDataType");
  EXPECT_EQ(jsonText(document["panel"]), normalized(R"({
    "state": "error", "message": "Could not parse SPUSBDataType", "cards": []
  })"));
}

TEST(Document, OfASuccessAfterAFailureHasNoError) {
  Scan scan;
  scan.machine->answer(Question::usb, "no JSON");
  scan.run();
  answerWithDesk(*scan.machine);

  EXPECT_EQ(jsonText(scan.run()), jsonText(deskDocument()));
}

TEST(Document, OfAFailureAfterASuccessKeepsTheEarlierContent) {
  Scan scan;
  answerWithDesk(*scan.machine);
  scan.run();
  scan.machine->answer(Question::usb, "no JSON");

  EXPECT_EQ(jsonText(scan.run()), jsonText(deskDocument()));
}

TEST(Document, DuringTheFirstScanHasTheStateScanning) {
  Scan scan;
  scan.scanner->scan();

  EXPECT_EQ(jsonText(inspectionDocument(*scan.scanner)["panel"]), normalized(R"({
    "state": "scanning", "message": "Scanning ports…", "cards": []
  })"));
  scan.run();
}

TEST(Document, IsTheSameForTheSameHardware) {
  EXPECT_EQ(jsonText(deskDocument()), jsonText(deskDocument()));
}

TEST(Document, DescribesAThunderboltBus) {
  Document bus = at(deskDocument(), "/thunderboltBuses/3");
  bus["connectedDevices"] = bus["connectedDevices"].size();
  EXPECT_EQ(jsonText(bus), normalized(R"({
    "busNumber": 0, "hostName": "Workshop", "uid": "0xA0", "displayName": "Thunderbolt Port 0",
    "port": {"status": "receptacle_connected", "speed": "Up to 40 Gb/s", "linkWidth": "0x2",
             "isConnected": true, "speedGbps": 40, "laneCount": 2, "totalBandwidthGbps": 80,
             "badgeText": "40 Gb/s ×2"},
    "connectedDevices": 1
  })"));
}

TEST(Document, DescribesWhatElseIsKnownOfEachPort) {
  EXPECT_EQ(jsonText(at(deskDocument(), "/ports/3")), normalized(R"({
    "portNumber": 1,
    "receptacles": [{"number": 1, "isConnected": true,
      "link": {"transmitGbps": 40.0, "receiveGbps": 40.0, "transmitLanes": 2, "receiveLanes": 2}}],
    "link": {"transmitGbps": 40.0, "receiveGbps": 40.0, "transmitLanes": 2, "receiveLanes": 2},
    "partner": null, "agreedPower": null, "offers": [], "intake": [], "powerMode": null,
    "cable": null, "video": null, "overCurrentCount": null, "isFailing": false
  })"));
  EXPECT_EQ(
      jsonText(describePorts(
          {{.busNumber = 1}},
          {{.portNumber = 2, .isMagSafe = true},
           {.portNumber = 2, .partner = PortPartner::audio, .agreedPower = AgreedPower{5, 1.5}}},
          std::nullopt)),
      normalized(R"([{
    "portNumber": 2, "receptacles": [], "link": null, "partner": "audio",
    "agreedPower": {"volts": 5.0, "amps": 1.5, "watts": 7.5}, "offers": [], "intake": [],
    "powerMode": null, "cable": null, "video": null, "overCurrentCount": null, "isFailing": false
  }])"));
}

TEST(Document, DescribesTheDetailsOfAPort) {
  HPMPort port{.portNumber = 1};
  port.details = {.offers = {{.minVolts = 20, .maxVolts = 20, .amps = 3.25, .isAgreed = true}},
                  .intake = {{.kind = PowerOfferKind::battery,
                              .minVolts = 5,
                              .maxVolts = 20,
                              .givenWatts = 60}},
                  .powerMode = PowerMode::powerDelivery,
                  .cable = CableRatings{.kind = CableKind::passive,
                                        .plug = CablePlug::typeC,
                                        .maxAmps = 3,
                                        .maxVolts = 20,
                                        .gbpsOfLane = 0.48},
                  .video = VideoUse{.lanes = 2, .isScreenPresent = true},
                  .overCurrentCount = 1,
                  .isFailing = true};
  Document details = describePorts({{.busNumber = 0}}, {port}, std::nullopt).front();
  for (const char* key : {"portNumber", "receptacles", "link", "partner", "agreedPower"}) {
    details.erase(key);
  }
  EXPECT_EQ(jsonText(details), normalized(R"({
    "offers": [{"kind": "fixed", "minVolts": 20.0, "maxVolts": 20.0, "amps": 3.25, "watts": 65.0,
                "isAgreed": true}],
    "intake": [{"kind": "battery", "minVolts": 5.0, "maxVolts": 20.0, "amps": null, "watts": 60.0,
                "isAgreed": false}],
    "powerMode": "powerDelivery",
    "cable": {"kind": "passive", "plug": "typeC", "maxAmps": 3.0, "maxVolts": 20.0,
              "maxWatts": 60.0, "gbpsOfLane": 0.48, "maxGbps": 0.48},
    "video": {"lanes": 2, "isScreenPresent": true}, "overCurrentCount": 1, "isFailing": true
  })"));
}

TEST(Document, NamesTheKindsOfOffersCablesAndModes) {
  const auto kindOf = [](PowerOfferKind kind) {
    return describeOffers({{.kind = kind}}).at(0).at("kind");
  };
  EXPECT_EQ(kindOf(PowerOfferKind::variable), "variable");
  EXPECT_EQ(kindOf(PowerOfferKind::programmable), "programmable");
  EXPECT_EQ(nameOf(PowerMode::usbDefault), "default");
  EXPECT_EQ(nameOf(PowerMode::onePointFiveAmps), "1.5A");
  EXPECT_EQ(nameOf(PowerMode::threeAmps), "3A");
  EXPECT_EQ(describe(CableRatings{.kind = CableKind::active})["kind"], "active");
  EXPECT_EQ(describe(CableRatings{.kind = CableKind::optical})["kind"], "optical");
  EXPECT_EQ(describe(CableRatings{.plug = CablePlug::typeA})["plug"], "typeA");
  EXPECT_EQ(describe(CableRatings{.plug = CablePlug::typeB})["plug"], "typeB");
  EXPECT_EQ(describe(CableRatings{.plug = CablePlug::captive})["plug"], "captive");
  EXPECT_TRUE(describe(CableRatings())["kind"].is_null());
  EXPECT_TRUE(describe(CableRatings())["plug"].is_null());
}

TEST(Document, DescribesTheOffersOfTheAdapterOnItsPort) {
  const ChargingState charging{
      .adapter =
          AdapterState{.offers = {{.minVolts = 9, .maxVolts = 9, .amps = 3}}, .portNumber = 2}};
  const Document ports = describePorts({{.busNumber = 0}, {.busNumber = 1}, {.busNumber = 2}},
                                       {{.portNumber = 1}, {.portNumber = 2}}, charging);
  EXPECT_EQ(ports[0]["offers"].size(), 0U);
  EXPECT_EQ(ports[1]["offers"].size(), 1U);
  EXPECT_EQ(ports[2]["offers"].size(), 0U);
}

TEST(Document, DescribesHowTheComputerIsPowered) {
  EXPECT_EQ(jsonText(describe(ChargingState{.isExternalPowerConnected = true,
                                            .hasBattery = true,
                                            .isCharging = false,
                                            .isFullyCharged = false,
                                            .chargePercent = 80,
                                            .batteryMa = -12,
                                            .batteryWatts = -0.5,
                                            .inputWatts = 18.5,
                                            .systemWatts = 17,
                                            .wantedMa = 0,
                                            .reasons = {.notCharging = 16777216, .slowCharging = 0},
                                            .maxIntakeWatts = 100,
                                            .limitStartPercent = 75,
                                            .limitEndPercent = 80,
                                            .statusText = "Not charging",
                                            .behaviour = "auto",
                                            .adapter = AdapterState{.ratedWatts = 65,
                                                                    .agreedVolts = 20,
                                                                    .agreedAmps = 3.25,
                                                                    .portNumber = 2}})),
            normalized(R"({
    "isExternalPowerConnected": true, "hasBattery": true, "isCharging": false,
    "isFullyCharged": false, "chargePercent": 80, "batteryMa": -12, "batteryWatts": -0.5,
    "inputWatts": 18.5, "systemWatts": 17.0, "wantedMa": 0,
    "reasons": {"notCharging": 16777216, "slowCharging": 0, "inhibited": null},
    "maxIntakeWatts": 100.0, "limitStartPercent": 75, "limitEndPercent": 80,
    "status": "Not charging", "behaviour": "auto",
    "adapter": {"ratedWatts": 65.0, "agreedVolts": 20.0, "agreedAmps": 3.25, "offers": [],
                "portNumber": 2}
  })"));
  EXPECT_EQ(jsonText(describe(ChargingState())), normalized(R"({
    "isExternalPowerConnected": null, "hasBattery": null, "isCharging": null,
    "isFullyCharged": null, "chargePercent": null, "batteryMa": null, "batteryWatts": null,
    "inputWatts": null, "systemWatts": null, "wantedMa": null,
    "reasons": {"notCharging": null, "slowCharging": null, "inhibited": null},
    "maxIntakeWatts": null, "limitStartPercent": null, "limitEndPercent": null,
    "status": null, "behaviour": null, "adapter": null
  })"));
}

TEST(Document, DescribesAbilitiesByTheNodesOfTheirDevices) {
  TreeNode drive(TreeNode::USBDeviceEntry{.device = {.ability = {.provenGbps = 10,
                                                                 .limitGbps = 20,
                                                                 .usbVersion = 0x0210,
                                                                 .linkGbps = 0.48,
                                                                 .isAuthorized = true}}});
  drive.id = "a/b";
  TreeNode mouse{TreeNode::USBDeviceEntry{}};
  TreeNode dock(TreeNode::TBDevice{{.linkLimit = LinkLimit{.lanes = 2, .gbpsOfLane = 20}}},
                {drive, mouse});
  dock.id = "a";
  const TreeNode other{TreeNode::TBDevice{}};
  EXPECT_EQ(jsonText(describeAbilities({dock, other})), normalized(R"([{
    "id": "a/b", "provenGbps": 10.0, "limitGbps": 20.0, "usbVersion": "2.10", "linkGbps": 0.48,
    "isAuthorized": true
  }])"));
  EXPECT_EQ(jsonText(describeLinkLimits({dock, other})), normalized(R"([{
    "id": "a", "lanes": 2, "gbpsOfLane": 20.0
  }])"));
}

TEST(Document, DescribesTheDriveAndTheAuthorisationOfAThunderboltDevice) {
  const Document device = describeDeviceWithoutChildren(
      ThunderboltDevice{.drives = {USBDevice{.name = "Slate 2TB",
                                             .serialNumber = "QS-0077",
                                             .volumes = {{"Footage", "/media/Footage"}},
                                             .untokenedGbps = 40}},
                        .isAuthorized = false});
  EXPECT_EQ(jsonText(device["drive"]), normalized(R"({
    "name": "Slate 2TB", "serialNumber": "QS-0077", "speedGbps": 40.0,
    "volumes": [{"name": "Footage", "mountPoint": "/media/Footage"}]
  })"));
  EXPECT_EQ(jsonText(device["link"]), normalized(R"({
    "transmitGbps": null, "receiveGbps": null, "transmitLanes": null, "receiveLanes": null,
    "isAuthorized": false
  })"));
}

TEST(Document, DescribesThunderboltDevicesWithWhatIsBehindThem) {
  EXPECT_EQ(jsonText(at(deskDocument(), "/thunderboltBuses/3/connectedDevices/0")), normalized(R"({
    "name": "Harbour Dock", "vendorName": "Harbour", "mode": "usb4_gen3x2", "uid": "0xD0",
    "firmwareVersion": "1.2", "upstreamSpeed": "20 Gb/s", "upstreamWidth": "0x2",
    "modeLabel": "USB4 40G", "upstreamSpeedGbps": 20, "upstreamLanes": 2,
    "upstreamLabel": "20 Gb/s ×2 = 40 Gb/s",
    "link": {"transmitGbps": 40.0, "receiveGbps": 40.0, "transmitLanes": 2, "receiveLanes": 2,
             "isAuthorized": null},
    "drive": null,
    "children": [
      {"name": "Bare", "vendorName": "", "mode": "", "uid": "", "firmwareVersion": "",
       "upstreamSpeed": "", "upstreamWidth": "", "modeLabel": "", "upstreamSpeedGbps": 0,
       "upstreamLanes": 1, "upstreamLabel": "", "link": null, "drive": null, "children": []}]
  })"));
}

TEST(Document, DescribesAUSBBusWithItsDevices) {
  EXPECT_EQ(jsonText(at(deskDocument(), "/usbBuses/0")), normalized(R"({
    "rawName": "USB31Bus", "hostController": "AppleT6020USBXHCI", "displayName": "USB 3.1 Bus",
    "maxSpeedGbps": 10.0, "maxSpeedLabel": "max 10 Gb/s", "portMaxMa": 900,
    "isInternalTBController": true,
    "devices": [
      {"name": "Quarry SSD", "vendorID": "0x1111", "productID": "0x2222", "speed": "super_speed",
       "manufacturer": "Quarry", "serialNumber": "S1", "busPower": 900, "busPowerUsed": 450,
       "containerID": null, "physicalPort": 1,
       "volumes": [{"name": "Data", "mountPoint": "/Volumes/Data"}],
       "speedGbps": 5.0, "speedShortLabel": "5 Gb/s", "speedDetailLabel": "USB 3.2 Gen 1",
       "powerAvailableW": 4.5, "powerUsedW": 2.25, "powerFraction": 0.5, "children": []}]
  })"));
}

TEST(Document, HasNullForWhatADeviceDoesNotReport) {
  Document hub = at(deskDocument(), "/usbBuses/1/devices/0");
  hub["children"] = hub["children"].size();
  EXPECT_EQ(jsonText(hub), normalized(R"({
    "name": "hub_device", "vendorID": "", "productID": "", "speed": "", "manufacturer": "",
    "serialNumber": null, "busPower": null, "busPowerUsed": 100, "containerID": null,
    "physicalPort": null, "volumes": [], "speedGbps": 0.0, "speedShortLabel": "—",
    "speedDetailLabel": "", "powerAvailableW": null, "powerUsedW": 0.5, "powerFraction": null,
    "children": 1
  })"));
}

TEST(Document, DescribesUSBBusesAfterMergingTheHalvesOfAHub) {
  Scan scan;
  scan.machine->answer(Question::usb, R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [
    {"_name": "Hub 2", "device_speed": "high_speed", "location_id": "0x01000000"},
    {"_name": "Hub 3", "device_speed": "super_speed", "location_id": "0x02000000"}]}]})");
  scan.machine->answer(Question::usbHostDevices, propertyList(R"(<array>
    <dict><key>locationID</key><integer>16777216</integer>
          <key>kUSBContainerID</key><string>box</string></dict>
    <dict><key>locationID</key><integer>33554432</integer>
          <key>kUSBContainerID</key><string>box</string></dict></array>)"));
  const Document devices = at(scan.run(), "/usbBuses/0/devices");

  ASSERT_EQ(devices.size(), 1U);
  EXPECT_EQ(devices[0]["name"], "Hub 3");
  EXPECT_EQ(devices[0]["containerID"], "box");
}

TEST(Document, DescribesTheAdapterAsReported) {
  EXPECT_EQ(jsonText(deskDocument()["charger"]), normalized(R"({
    "name": "96W USB-C Power Adapter", "manufacturer": "Volta", "ratedWatts": 96,
    "currentWatts": 58, "hardwareVersion": "1.0", "firmwareVersion": "2.0", "isConnected": true,
    "isCharging": true, "connectsViaUSBC": false, "portLabel": null
  })"));
}

TEST(Document, HasNullForWhatAnAdapterDoesNotReport) {
  Scan scan;
  scan.machine->answer(Question::power,
                       R"({"SPPowerDataType": [{"_name": "sppower_ac_charger_information"}]})");
  const Document charger = scan.run()["charger"];

  EXPECT_TRUE(charger.at("ratedWatts").is_null());
  EXPECT_TRUE(charger.at("currentWatts").is_null());
}

TEST(Document, DescribesTheBattery) {
  EXPECT_EQ(jsonText(deskDocument()["battery"]), normalized(R"({
    "stateOfCharge": 72, "isFullyCharged": false, "isCharging": true, "health": "Good",
    "maxCapacityPercent": "91%", "cycleCount": 120
  })"));
}

TEST(Document, DescribesPortControllers) {
  EXPECT_EQ(jsonText(at(deskDocument(), "/hpmPorts/0")), normalized(R"({
    "portNumber": 1, "isMagSafe": false, "connectionActive": true, "hasData": true,
    "hasVideo": true, "activeCable": true, "opticalCable": false, "accessoryID": -1,
    "isCharger": false, "isChargeOnlyDevice": false, "cableLabel": "active cable",
    "label": "Thunderbolt Port 1"
  })"));
  EXPECT_EQ(jsonText(at(cornerDocument(), "/hpmPorts/0")), normalized(R"({
    "portNumber": 1, "isMagSafe": true, "connectionActive": true, "hasData": false,
    "hasVideo": false, "activeCable": false, "opticalCable": false, "accessoryID": -1,
    "isCharger": true, "isChargeOnlyDevice": false, "cableLabel": null, "label": "MagSafe"
  })"));
}

TEST(Document, DescribesTheBatteryControllersPorts) {
  EXPECT_EQ(jsonText(deskDocument()["fedPortStates"]), normalized(R"([
    {"index": 0, "isConnected": true, "isDualRole": false, "vendorID": 1452, "productID": 7,
     "powerRole": 2}
  ])"));
  EXPECT_EQ(deskDocument()["bestAdapterIndex"], 2);
}

TEST(Document, KeysTablesByDecimalPortNumbers) {
  EXPECT_EQ(jsonText(deskDocument()["portPowerOut"]), normalized(R"({
    "1": {"usedWatts": 3.75, "allocatedWatts": 15.0, "volts": 5.0, "amps": 0.75}
  })"));
  EXPECT_EQ(jsonText(deskDocument()["portCurrentLimitMa"]), normalized(R"({"1": 3000})"));
}

TEST(DocumentTexts, SpeakTheLanguageOfTheRun) {
  const struct {
    AppLanguage language;
    const char* title;
    const char* itemCount;
    const char* speedNote;
    const char* breadcrumb;
  } rows[] = {
      {AppLanguage::de, "Thunderbolt-Port 1", "4 Geräte",
       "Port unterstützt bis zu 10 Gb/s — Gerät oder Kabel ist der Engpass", "Thunderbolt-Port 2"},
      {AppLanguage::fr, "Port Thunderbolt 1", "4 éléments",
       "Le port prend en charge jusqu’à 10 Gb/s — l’appareil ou le câble est le goulot "
       "d’étranglement",
       "Port Thunderbolt 2"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.title);
    const LanguageScope scope(row.language);
    const Document document = deskDocument();
    EXPECT_EQ(at(document, "/panel/cards/0/title"), row.title);
    EXPECT_EQ(at(document, "/panel/cards/0/itemCount"), row.itemCount);
    EXPECT_EQ(at(document, "/portTree/1/children/0/speedNote"), row.speedNote);
    EXPECT_EQ(at(document, "/searchEntries/4/breadcrumb"), row.breadcrumb);
  }
}

TEST(DocumentTexts, KeepTheErrorAndTheNamesOfColoursInEnglish) {
  const LanguageScope german(AppLanguage::de);
  Scan scan;
  scan.machine->answer(Question::power, "no JSON");

  EXPECT_EQ(scan.run()["errorMessage"], "Could not parse SPPowerDataType");
  EXPECT_EQ(at(deskDocument(), "/panel/cards/1/rows/0/speedColor"), "amber");
}

TEST(DocumentTexts, KeepHostileNamesUnchanged) {
  Scan scan;
  scan.machine->answer(Question::usb, R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [
    {"_name": "\u001b[31m<b>\u202e\"", "device_speed": ""}]}]})");
  const Document document = scan.run();
  const std::string name = "\x1b[31m<b>\u202E\"";

  EXPECT_EQ(at(document, "/usbBuses/0/devices/0/name"), name);
  EXPECT_EQ(at(document, "/panel/cards/0/rows/0/name"), name);
  EXPECT_EQ(document.dump().find('\x1b'), std::string::npos);
}

} // namespace
} // namespace tamberline
