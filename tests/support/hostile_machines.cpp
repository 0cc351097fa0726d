#include "support/hostile_machines.h"

#include "support/property_list_text.h"

#include <cstdio>

namespace tamberline {
namespace {

using nlohmann::json;

std::string section(const std::string& name, const std::vector<json>& entries) {
  json report = json::object();
  report[name] = entries;
  return report.dump();
}

std::string repeated(const std::string& text, int count) {
  std::string repeated;
  for (int times = 0; times < count; ++times) {
    repeated += text;
  }
  return repeated;
}

json thunderboltDeviceEntry(const std::string& name) {
  return {{"_name", name}, {"vendor_name_key", name}, {"mode_key", name}};
}

json hubEntry(const std::string& name, const std::string& speed, unsigned location,
              const std::vector<json>& children) {
  json hub = located(deviceEntry(name, children), location);
  hub["device_speed"] = speed;
  return hub;
}

} // namespace

std::vector<std::string> hostileNames() {
  return {
      R"(<img src="file:///etc/passwd"><b>x</b>&amp;<script>)",
      "%s%n {0} %1 \\u0041 ${HOME} `id` '; --",
      "a\x01\x07\x1b[31m\r\n\t\x7f\u0085z",
      "report\u202egnp.exe\u2066\u2067\u200f\u061c",
      "\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466 \U0001F1E9\U0001F1EA "
      "\U0001F44D\U0001F3FD \u2764\uFE0F",
      repeated("\U0001F468\u200D", 1'000),
      "Z" + repeated("\u0301\u0327\u20DD", 1'000),
      repeated("\uFDFD", 200),
      repeated("W", 100'000),
      repeated("/", 300),
      "#1",
      "hub_device",
      " \t ",
      "",
  };
}

void answerWithThunderboltEntries(FakeMachine& machine, const std::vector<json>& entries) {
  machine.answer(Question::thunderbolt, section("SPThunderboltDataType", entries));
}

void answerWithUSBEntries(FakeMachine& machine, const std::vector<json>& entries) {
  machine.answer(Question::usb, section("SPUSBDataType", entries));
}

void answerWithContainers(FakeMachine& machine, const Containers& containers) {
  std::string entries;
  for (const auto& [location, identifier] : containers) {
    entries += "<dict><key>locationID</key><integer>" + std::to_string(location) +
               "</integer><key>kUSBContainerID</key><string>" + identifier + "</string></dict>";
  }
  machine.answer(Question::usbHostDevices, propertyList("<array>" + entries + "</array>"));
}

json portEntry(int index) {
  return {{"_name", "thunderboltusb4_bus_" + std::to_string(index)}};
}

json busEntry(const std::vector<json>& devices) {
  return {{"_name", "USB31Bus"}, {"host_controller", "AppleUSBXHCIPCI"}, {"_items", devices}};
}

json ownBusEntry(const std::vector<json>& devices) {
  return {{"_name", "USB31Bus"}, {"host_controller", "AppleT6020USBXHCI"}, {"_items", devices}};
}

json deviceEntry(const std::string& name, const std::vector<json>& children) {
  json device = {{"_name", name}};
  if (!children.empty()) {
    device["_items"] = children;
  }
  return device;
}

json located(json device, unsigned location) {
  std::string digits(9, '\0');
  const int length = std::snprintf(digits.data(), digits.size(), "%08x", location);
  device["location_id"] = "0x" + digits.substr(0, static_cast<std::size_t>(length)) + " / 1";
  return device;
}

void answerWithNameEverywhere(FakeMachine& machine, const std::string& name) {
  json port = portEntry(0);
  port["device_name_key"] = name;
  port["_items"] = std::vector<json>{thunderboltDeviceEntry(name), thunderboltDeviceEntry("Dock")};
  answerWithThunderboltEntries(machine, {port});
  json device = deviceEntry(name);
  for (const char* key : {"vendor_id", "product_id", "serial_num", "manufacturer", "device_speed",
                          "bus_power", "bus_power_used"}) {
    device[key] = name;
  }
  const json volume = {{"_name", name}, {"mount_point", "/Volumes/" + name}};
  device["Media"] = std::vector<json>{{{"volumes", std::vector<json>{volume}}}};
  json bus = busEntry({device});
  bus["_name"] = name;
  answerWithUSBEntries(machine, {ownBusEntry({located(device, 0x00100000)}), bus});
  const json adapter = {{"_name", "sppower_ac_charger_information"},
                        {"sppower_ac_charger_name", name},
                        {"sppower_ac_charger_manufacturer", name},
                        {"sppower_battery_charger_connected", "TRUE"}};
  machine.answer(Question::power, section("SPPowerDataType", {adapter}));
  machine.answer(Question::portControllers,
                 propertyList("<array><dict><key>PortNumber</key><integer>1</integer>"
                              "<key>PortDescription</key><string>Port</string>"
                              "<key>ConnectionActive</key><true/></dict></array>"));
}

void answerWithManyPorts(FakeMachine& machine, int count) {
  std::vector<json> ports;
  std::vector<json> devices;
  for (int index = 0; index < count; ++index) {
    ports.push_back(portEntry(index));
    devices.push_back(located(deviceEntry("Device of port " + std::to_string(index + 1)),
                              static_cast<unsigned>(index) << 24U));
  }
  answerWithThunderboltEntries(machine, ports);
  answerWithUSBEntries(machine, {ownBusEntry(devices)});
}

void answerWithManyDevices(FakeMachine& machine, int count) {
  constexpr int devicesOnHub = 10;
  std::vector<json> hubs;
  for (int device = 0; device < count; device += devicesOnHub) {
    std::vector<json> children;
    for (int child = 1; child < devicesOnHub; ++child) {
      children.push_back(deviceEntry("Device " + std::to_string(device + child)));
    }
    hubs.push_back(located(deviceEntry("Hub " + std::to_string(device), children), 0x00100000));
  }
  answerWithThunderboltEntries(machine, {portEntry(0)});
  answerWithUSBEntries(machine, {ownBusEntry(hubs)});
}

void answerWithHubThatHoldsItself(FakeMachine& machine) {
  const json innermost = hubEntry("Inner", "super_speed", 0x00111000, {deviceEntry("Camera")});
  const json middle =
      hubEntry("Middle", "high_speed", 0x00110000, {deviceEntry("Mouse"), innermost});
  const json outer = hubEntry("Outer", "high_speed", 0x00100000, {deviceEntry("Keys"), middle});
  answerWithThunderboltEntries(machine, {portEntry(0)});
  answerWithUSBEntries(machine, {ownBusEntry({outer, located(deviceEntry("Disk"), 0x00200000)})});
  answerWithContainers(machine, {{0x00100000, "box"}, {0x00110000, "box"}, {0x00111000, "box"}});
}

void answerWithTwins(FakeMachine& machine, int count) {
  std::vector<json> twins;
  for (int twin = 0; twin < count; ++twin) {
    json hub = located(deviceEntry("Twin", {deviceEntry("Child")}), 0x00100000);
    hub["vendor_id"] = "0x1111";
    hub["product_id"] = "0x2222";
    hub["serial_num"] = "S";
    twins.push_back(hub);
  }
  answerWithThunderboltEntries(machine, {portEntry(0)});
  answerWithUSBEntries(machine, {ownBusEntry(twins)});
}

} // namespace tamberline
