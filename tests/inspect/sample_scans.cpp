#include "inspect/sample_scans.h"

#include "support/property_list_text.h"
#include "support/simulated_event_source.h"

#include <chrono>

namespace tamberline {
namespace {

constexpr const char* thunderboltReport = R"({"SPThunderboltDataType": [
  {"_name": "thunderboltusb4_bus_3"},
  {"_name": "thunderboltusb4_bus_2"},
  {"_name": "thunderboltusb4_bus_1"},
  {"_name": "thunderboltusb4_bus_0", "device_name_key": "Workshop", "switch_uid_key": "0xA0",
   "receptacle_1_tag": {"receptacle_status_key": "receptacle_connected", "receptacle_id_key": "1",
                        "current_speed_key": "Up to 40 Gb/s", "current_link_width_key": "0x2"},
   "_items": [
     {"_name": "Harbour Dock", "vendor_name_key": "Harbour", "mode_key": "usb4_gen3x2",
      "switch_uid_key": "0xD0", "switch_version_key": "1.2",
      "receptacle_upstream_ambiguous_tag": {"current_speed_key": "20 Gb/s",
                                            "current_link_width_key": "0x2"},
      "_items": [{"_name": "Bare"}]}]}
]})";

constexpr const char* usbReport = R"({"SPUSBDataType": [
  {"_name": "USB31Bus", "host_controller": "AppleT6020USBXHCI", "_items": [
    {"_name": "Quarry SSD", "vendor_id": "0x1111", "product_id": "0x2222",
     "device_speed": "super_speed", "manufacturer": "Quarry", "serial_num": "S1",
     "bus_power": "900", "bus_power_used": "450", "extra_current_used": "1600",
     "location_id": "0x01100000 / 1",
     "Media": [{"volumes": [{"_name": "Data", "mount_point": "/Volumes/Data"}]}]}]},
  {"_name": "USB20Bus", "host_controller": "AppleUSBXHCIPCI", "_items": [
    {"_name": "hub_device", "bus_power_used": "100", "_items": [
      {"_name": "Keys", "device_speed": "low_speed", "manufacturer": "Lettera",
       "bus_power_used": "100"}]}]}
]})";

constexpr const char* powerReport = R"({"SPPowerDataType": [
  {"_name": "spbattery_information",
   "sppower_battery_charge_info": {"sppower_battery_state_of_charge": 72,
     "sppower_battery_fully_charged": "FALSE", "sppower_battery_is_charging": "TRUE"},
   "sppower_battery_health_info": {"sppower_battery_health": "Good",
     "sppower_battery_health_maximum_capacity": "91%", "sppower_battery_cycle_count": 120}},
  {"_name": "sppower_ac_charger_information", "sppower_ac_charger_name": "96W USB-C Power Adapter",
   "sppower_ac_charger_manufacturer": "Volta", "sppower_ac_charger_watts": "58",
   "sppower_ac_charger_hardware_version": "1.0", "sppower_ac_charger_firmware_version": "2.0",
   "sppower_battery_charger_connected": "TRUE", "sppower_battery_is_charging": "TRUE"}
]})";

/// A port controller's entry; `more` has further members.
std::string controller(const std::string& portNumber, const std::string& type,
                       const std::string& more) {
  return "<dict><key>PortNumber</key><integer>" + portNumber +
         "</integer><key>PortDescription</key><string>Port</string>"
         "<key>PortTypeDescription</key><string>" +
         type + "</string>" + more + "</dict>";
}

constexpr const char* activeConnection = "<key>ConnectionActive</key><true/>";

std::string portControllers() {
  return propertyList(
      "<array>" +
      controller("1", "USB-C",
                 std::string(activeConnection) +
                     "<key>TransportsActive</key><array><string>CIO</string><string>DisplayPort"
                     "</string></array><key>ActiveCable</key><true/>") +
      controller("3", "USB-C", activeConnection) +
      controller("4", "USB-C",
                 std::string(activeConnection) + "<key>IOAccessoryID</key><integer>5</integer>") +
      "</array>");
}

constexpr const char* powerOut = R"(<array><dict><key>PowerOutDetails</key><array><dict>
  <key>PortIndex</key><integer>1</integer><key>Watts</key><integer>375</integer>
  <key>ConfiguredVoltage</key><integer>5000</integer>
  <key>ConfiguredCurrent</key><integer>3000</integer>
  <key>AdapterVoltage</key><integer>5000</integer><key>Current</key><integer>750</integer>
</dict></array></dict></array>)";

constexpr const char* currentLimit = R"(<array><dict>
  <key>IORegistryEntryName</key><string>port-usb-c-1</string>
  <key>port-number</key><data>AQAAAA==</data>
  <key>acc_bm3-current-limit</key><data>uAsAAA==</data>
</dict></array>)";

constexpr const char* batteryController = R"(<array><dict>
  <key>BestAdapterIndex</key><integer>2</integer>
  <key>FedDetails</key><array><dict>
    <key>FedExternalConnected</key><integer>1</integer>
    <key>FedDualRolePower</key><integer>0</integer>
    <key>FedVendorID</key><integer>1452</integer>
    <key>FedProductID</key><integer>7</integer>
    <key>FedPortPowerRole</key><integer>2</integer>
  </dict></array>
</dict></array>)";

} // namespace

Scan::Scan()
    : scanner(PortScanner::create(
          {.acquisition = {machine, queue}, .events = std::make_shared<SimulatedEventSource>()})) {
  answerWithEmptyReports(*machine);
}

Document Scan::run() {
  scanner->scan();
  queue->advance(std::chrono::milliseconds(150));
  return inspectionDocument(*scanner);
}

void answerWithDesk(FakeMachine& machine) {
  machine.answer(Question::thunderbolt, thunderboltReport);
  machine.answer(Question::usb, usbReport);
  machine.answer(Question::power, powerReport);
  machine.answer(Question::portControllers, portControllers());
  machine.answer(Question::portPower, propertyList(powerOut));
  machine.answer(Question::deviceTree, propertyList(currentLimit));
  machine.answer(Question::powerSource, propertyList(batteryController));
}

Document deskDocument() {
  Scan scan;
  answerWithDesk(*scan.machine);
  return scan.run();
}

Document cornerDocument() {
  Scan scan;
  scan.machine->answer(Question::usb, usbReport);
  scan.machine->answer(Question::power, powerReport);
  scan.machine->answer(
      Question::portControllers,
      propertyList("<array>" + controller("1", "MagSafe 3", activeConnection) + "</array>"));
  return scan.run();
}

Document at(const Document& document, const std::string& pointer) {
  return document.at(Document::json_pointer(pointer));
}

std::string keysOf(const Document& object) {
  std::string keys;
  for (const auto& [key, value] : object.items()) {
    keys += (keys.empty() ? "" : " ") + key;
  }
  return keys;
}

std::string jsonText(const Document& document) {
  return document.dump(2);
}

std::string normalized(const std::string& json) {
  return jsonText(Document::parse(json));
}

} // namespace tamberline
