#include "ui/machines.h"

#include "support/property_list_text.h"

namespace tamberline {
namespace {

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) {
    text += (text.empty() ? "" : ", ") + part;
  }
  return text;
}

std::string section(const std::string& name, const std::vector<std::string>& entries) {
  return R"({")" + name + R"(": [)" + joined(entries) + "]}";
}

std::string port(int index) {
  return R"({"_name": "thunderboltusb4_bus_)" + std::to_string(index) + R"("})";
}

std::string fourDigits(int number) {
  std::string digits = std::to_string(number);
  return digits.insert(0, 4 - digits.size(), '0');
}

std::string ownBus(const std::string& devices) {
  return R"({"_name": "USB31Bus", "host_controller": "AppleT6020USBXHCI", "_items": [)" + devices +
         "]}";
}

constexpr const char* longThunderboltReport = R"({"SPThunderboltDataType": [
  {"_name": "thunderboltusb4_bus_0", "device_name_key": "Workshop", "switch_uid_key": "0xA0",
   "receptacle_1_tag": {"receptacle_status_key": "receptacle_connected",
                        "current_speed_key": "Up to 40 Gb/s", "current_link_width_key": "0x2"},
   "_items": [
     {"_name": "Harbour Dock Professional Seventeen Ports Second Edition 2026",
      "vendor_name_key": "Harbour Instruments and Peripherals International",
      "mode_key": "thunderbolt_nineteen_experimental_mode_with_a_name_beyond_any_measure", "switch_uid_key": "0xD0",
      "receptacle_upstream_ambiguous_tag": {"current_speed_key": "20 Gb/s",
                                            "current_link_width_key": "0x2"}}]},
  {"_name": "thunderboltusb4_bus_1"},
  {"_name": "thunderboltusb4_bus_2"}
]})";

constexpr const char* longUSBReport = R"({"SPUSBDataType": [
  {"_name": "USB31Bus", "host_controller": "AppleUSBXHCIPCI", "_items": [
    {"_name": "Lettera Industrial Powered Hub With Individually Switched Port",
     "device_speed": "super_speed", "manufacturer": "Lettera", "location_id": "0x01200000 / 1",
     "bus_power": "900", "bus_power_used": "100", "_items": [
       {"_name": "Quarry Portable Encrypted Solid State Drive Explorer Edition",
        "vendor_id": "0x1111", "product_id": "0x2222", "device_speed": "high_speed",
        "manufacturer": "Quarry Storage Devices", "serial_num": "S1",
        "bus_power": "900", "bus_power_used": "896", "location_id": "0x01210000 / 2",
        "Media": [{"volumes": [
          {"_name": "Fieldwork Recordings and Transcripts of the Northern Archive",
           "mount_point": "/Volumes/Fieldwork"},
          {"_name": "Küste Sommer", "mount_point": "/Volumes/Sommer"}]}]}]}]}
]})";

constexpr const char* longPowerReport = R"({"SPPowerDataType": [
  {"_name": "sppower_ac_charger_information",
   "sppower_ac_charger_name": "140W Volta Gallium Nitride Travel Power Adapter With Long Cable",
   "sppower_ac_charger_watts": "138", "sppower_battery_charger_connected": "TRUE",
   "sppower_battery_is_charging": "TRUE"}
]})";

std::string controller(const std::string& portNumber, const std::string& transports,
                       const std::string& more) {
  return "<dict><key>PortNumber</key><integer>" + portNumber +
         "</integer><key>PortDescription</key><string>Port</string>"
         "<key>PortTypeDescription</key><string>USB-C</string>"
         "<key>ConnectionActive</key><true/><key>TransportsActive</key><array>" +
         transports + "</array>" + more + "</dict>";
}

std::string longPortControllers() {
  return propertyList("<array>" +
                      controller("1", "<string>CIO</string><string>DisplayPort</string>",
                                 "<key>ActiveCable</key><true/><key>OpticalCable</key><true/>") +
                      controller("2", "", "") +
                      controller("3", "", "<key>IOAccessoryID</key><integer>5</integer>") +
                      "</array>");
}

constexpr const char* longPowerOut = R"(<array><dict><key>PowerOutDetails</key><array><dict>
  <key>PortIndex</key><integer>1</integer><key>Watts</key><integer>1375</integer>
  <key>ConfiguredVoltage</key><integer>20000</integer>
  <key>ConfiguredCurrent</key><integer>5000</integer>
  <key>AdapterVoltage</key><integer>20000</integer><key>Current</key><integer>750</integer>
</dict></array></dict></array>)";

constexpr const char* longCurrentLimit = R"(<array><dict>
  <key>IORegistryEntryName</key><string>port-usb-c-1</string>
  <key>port-number</key><data>AQAAAA==</data>
  <key>acc_bm3-current-limit</key><data>uAsAAA==</data>
</dict></array>)";

} // namespace

void answerWithPorts(FakeMachine& machine, int count) {
  std::vector<std::string> ports;
  for (int index = 0; index < count; ++index) {
    ports.push_back(port(index));
  }
  machine.answer(Question::thunderbolt, section("SPThunderboltDataType", ports));
}

void answerWithDevices(FakeMachine& machine, const std::vector<ReportedDevice>& devices) {
  std::vector<std::string> entries;
  int number = 0;
  for (const ReportedDevice& device : devices) {
    entries.push_back(R"({"_name": ")" + device.name + R"(", "location_id": "0x0011)" +
                      fourDigits(++number) + R"( / 1")" +
                      (device.members.empty() ? "" : ", " + device.members) + "}");
  }
  answerWithPorts(machine, 1);
  machine.answer(Question::usb, section("SPUSBDataType", {ownBus(joined(entries))}));
}

void answerWithDisk(FakeMachine& machine) {
  answerWithDevices(machine, {{"Quarry SSD", R"("device_speed": "high_speed", "serial_num": "S1",
    "bus_power": "900", "bus_power_used": "450",
    "Media": [{"volumes": [{"_name": "Data", "mount_point": "/Volumes/Data"}]}])"}});
}

void answerWithLongNames(FakeMachine& machine) {
  machine.answer(Question::thunderbolt, longThunderboltReport);
  machine.answer(Question::usb, longUSBReport);
  machine.answer(Question::power, longPowerReport);
  machine.answer(Question::portControllers, longPortControllers());
  machine.answer(Question::portPower, propertyList(longPowerOut));
  machine.answer(Question::deviceTree, propertyList(longCurrentLimit));
}

} // namespace tamberline
