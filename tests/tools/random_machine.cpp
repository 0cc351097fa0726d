#include "random_machine.h"

#include "support/property_list_text.h"

#include <nlohmann/json.hpp>

#include <random>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

class MachineMaker {
public:
  explicit MachineMaker(std::uint32_t seed) : random_(seed) {}

  RandomMachine make() {
    const unsigned portCount = upTo(5);
    json thunderbolt = json::array();
    for (unsigned port = 0; port < portCount; ++port) {
      thunderbolt.push_back(thunderboltBus(port));
    }
    json usb = json::array();
    for (unsigned bus = upTo(5); bus > 0; --bus) {
      usb.push_back(usbBus(portCount));
    }
    addSplitHub(usb);
    machine_.answers[Question::thunderbolt] = json{{"SPThunderboltDataType", thunderbolt}}.dump();
    machine_.answers[Question::usb] = json{{"SPUSBDataType", usb}}.dump();
    machine_.answers[Question::power] = powerReport();
    machine_.answers[Question::portControllers] = portControllers(portCount);
    machine_.answers[Question::portPower] = portPower(portCount);
    machine_.answers[Question::deviceTree] = currentLimits(portCount);
    machine_.answers[Question::usbHostDevices] =
        propertyList("<array>" + containerEntries_ + "</array>");
    return machine_;
  }

private:
  // std::uniform_int_distribution differs from system to system.
  unsigned upTo(unsigned highest) { return static_cast<unsigned>(random_()) % (highest + 1); }
  bool inOneOf(unsigned count) { return upTo(count - 1) == 0; }

  std::string newName(bool isShown) {
    static const std::vector<std::string> words = {"Dock",   "Hub",         "hub_device/", "SSD",
                                                   "Küste",  "<b>bold</b>", "a/b",         "#1",
                                                   "\u202e", "\x1b[0m"};
    std::string name =
        words[upTo(static_cast<unsigned>(words.size()) - 1)] + " " + std::to_string(++nameCount_);
    (isShown ? machine_.shownDevices : machine_.hiddenDevices).insert(name);
    return name;
  }

  void strewValues(json& item) {
    static const std::vector<json> values = {
        "500",          "n/a", "-3", 7, true, nullptr, json::array({1}), "9223372036854775808",
        json::object(), 1.5};
    for (const char* key : {"bus_power", "bus_power_used", "vendor_id", "serial_num",
                            "manufacturer", "mode_key", "Media", "device_speed"}) {
      if (inOneOf(3)) {
        item[key] = values[upTo(static_cast<unsigned>(values.size()) - 1)];
      }
    }
  }

  json thunderboltDevice(unsigned depth, bool isShown) {
    const bool hasName = !inOneOf(12);
    json item = json::object();
    strewValues(item);
    if (hasName) {
      item["_name"] = newName(isShown);
    }
    if (depth < 6 && inOneOf(2)) {
      item["_items"] = json::array({thunderboltDevice(depth + 1, isShown && hasName)});
    }
    return item;
  }

  json thunderboltBus(unsigned number) {
    json entry = {{"_name", "thunderbolt_bus_" + std::to_string(number)},
                  {"_items", json::array()}};
    for (unsigned device = upTo(2); device > 0; --device) {
      entry["_items"].push_back(thunderboltDevice(0, true));
    }
    return entry;
  }

  json usbDevice(unsigned depth, bool isShown) {
    const bool hasName = !inOneOf(15);
    json item = json::object();
    strewValues(item);
    if (hasName) {
      item["_name"] = newName(isShown);
    }
    const unsigned childCount = depth < 8 ? upTo(2) : 0;
    for (unsigned child = 0; child < childCount; ++child) {
      item["_items"].push_back(usbDevice(depth + 1, isShown && hasName));
    }
    return item;
  }

  std::string newLocation(unsigned port) {
    return std::to_string((port << 24U) + ++locationCount_);
  }

  static std::string asReportText(const std::string& location) {
    std::string digits(9, '\0');
    const int length = std::snprintf(digits.data(), digits.size(), "%08lx", std::stoul(location));
    return "0x" + digits.substr(0, static_cast<std::size_t>(length)) + " / 1";
  }

  /// Devices on the computer's own controllers are left out if their port has no bus.
  json usbBus(unsigned portCount) {
    const bool isInternal = inOneOf(2);
    json entry = {{"_name", inOneOf(2) ? "USB31Bus" : "USB20Bus"},
                  {"host_controller", isInternal ? "AppleT8112USBXHCI" : "AppleUSBXHCIPCI"},
                  {"_items", json::array()}};
    for (unsigned device = upTo(3); device > 0; --device) {
      const unsigned port = upTo(6);
      json item = usbDevice(0, !isInternal || port < portCount);
      item["location_id"] = asReportText(newLocation(port));
      entry["_items"].push_back(item);
    }
    return entry;
  }

  json hubHalf(const std::string& speed, bool isShown) {
    const std::string location = newLocation(0);
    containerEntries_ += "<dict><key>locationID</key><integer>" + location +
                         "</integer><key>kUSBContainerID</key><string>split</string></dict>";
    json half = {{"_name", newName(isShown)},
                 {"location_id", asReportText(location)},
                 {"device_speed", speed},
                 {"_items", json::array()}};
    for (unsigned child = upTo(2); child > 0; --child) {
      half["_items"].push_back(usbDevice(4, true));
    }
    return half;
  }

  /// The slower half is dropped, and its devices move to the faster one.
  void addSplitHub(json& usb) {
    usb.push_back({{"_name", "USB20Bus"}, {"_items", json::array({hubHalf("high_speed", false)})}});
    usb.push_back({{"_name", "USB31Bus"}, {"_items", json::array({hubHalf("super_speed", true)})}});
  }

  json powerReportEntry() {
    json entry = {{"_name", "sppower_ac_charger_information"},
                  {"sppower_ac_charger_name", inOneOf(3) ? "Adapter" : "96W Adapter"},
                  {"sppower_battery_charger_connected", inOneOf(4) ? "FALSE" : "TRUE"}};
    strewValues(entry);
    return entry;
  }

  std::string powerReport() {
    json entries = json::array({{{"_name", "spbattery_information"}}});
    if (!inOneOf(4)) {
      entries.push_back(powerReportEntry());
    }
    return json{{"SPPowerDataType", entries}}.dump();
  }

  static std::string integerEntry(const std::string& key, std::int64_t value) {
    return "<key>" + key + "</key><integer>" + std::to_string(value) + "</integer>";
  }

  std::string trueOrAbsent(const std::string& key) {
    return inOneOf(2) ? "<key>" + key + "</key><true/>" : "";
  }

  std::string portControllers(unsigned portCount) {
    std::string entries;
    for (unsigned port = 0; port <= portCount; ++port) {
      entries +=
          "<dict>" + integerEntry("PortNumber", upTo(portCount + 1)) +
          "<key>PortDescription</key><string>Port</string>" + trueOrAbsent("ConnectionActive") +
          trueOrAbsent("ActiveCable") + trueOrAbsent("DisplayPortPinAssignment") +
          (inOneOf(5) ? "<key>PortTypeDescription</key><string>MagSafe 3</string>" : "") +
          (inOneOf(2) ? integerEntry("IOAccessoryID", upTo(9)) : "") +
          (inOneOf(3) ? "<key>TransportsActive</key><array><string>USB3</string></array>" : "") +
          "</dict>";
    }
    return propertyList("<array>" + entries + "</array>");
  }

  std::string portPower(unsigned portCount) {
    std::string elements;
    for (unsigned port = 0; port < portCount; ++port) {
      elements += "<dict>" + integerEntry("PortIndex", port + 1) +
                  integerEntry("Watts", upTo(9000)) + integerEntry("ConfiguredVoltage", 5000) +
                  integerEntry("ConfiguredCurrent", upTo(3000)) + "</dict>";
    }
    return propertyList("<array><dict><key>PowerOutDetails</key><array>" + elements +
                        "</array></dict></array>");
  }

  /// Each limit is 3,000 mA.
  std::string currentLimits(unsigned portCount) {
    static const std::vector<std::string> encodedNumbers = {
        "AQAAAA==", "AgAAAA==", "AwAAAA==", "BAAAAA==", "BQAAAA=="};
    std::string entries;
    for (unsigned port = 0; port < portCount && !inOneOf(6); ++port) {
      entries += "<dict><key>IORegistryEntryName</key><string>port-usb-c-" +
                 std::to_string(port + 1) + "</string><key>port-number</key><data>" +
                 encodedNumbers[port] +
                 "</data><key>acc_bm3-current-limit</key><data>uAsAAA==</data></dict>";
    }
    return propertyList("<array>" + entries + "</array>");
  }

  std::mt19937 random_;
  RandomMachine machine_;
  std::string containerEntries_;
  unsigned nameCount_ = 0;
  unsigned locationCount_ = 0;
};

} // namespace

RandomMachine makeRandomMachine(std::uint32_t seed) {
  return MachineMaker(seed).make();
}

} // namespace tamberline
