#include "large_machine.h"

#include <array>
#include <cstdio>

namespace tamberline {
namespace {

constexpr std::size_t devicesPerHub = 7;

std::string hexadecimal(std::size_t number) {
  std::array<char, 20> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "0x%08zx", number);
  return buffer.data();
}

std::string propertyList(const std::string& content) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">\n" + content +
         "</plist>\n";
}

class LargeMachine {
public:
  explicit LargeMachine(std::size_t deviceCount) {
    while (made_ < deviceCount) {
      const std::string hub = makeHub(/*nestedLevels=*/2);
      fastHubs_ += (fastHubs_.empty() ? "" : ",") + hub;
    }
  }

  std::map<Question, std::string> answers() const {
    return {
        {Question::usb, "{\"SPUSBDataType\": [" + bus("USB31Bus", fastHubs_) + "," +
                            bus("USB20Bus", slowHubs_) + "]}"},
        {Question::thunderbolt, thunderboltReport()},
        {Question::power, "{\"SPPowerDataType\": []}"},
        {Question::usbHostDevices, propertyList("<array>\n" + entries_ + "</array>\n")},
    };
  }

private:
  static std::string bus(const std::string& name, const std::string& items) {
    return R"({"_name": ")" + name + R"(", "host_controller": "AppleUSBXHCIPCI", "_items": [)" +
           items + "]}";
  }

  static std::string thunderboltReport() {
    return R"({"SPThunderboltDataType": [{"_name": "thunderboltusb4_bus_0", "_items": [
        {"_name": "Harbour Dock", "vendor_name_key": "Harbour", "switch_uid_key": "0x1"}]}]})";
  }

  /// The members of a device or hub at a new location, without its closing brace.
  std::string device(const std::string& kind, const std::string& speed,
                     const std::string& containerID) {
    const std::size_t location = 0x00100000 + ++made_;
    const std::string number = std::to_string(made_);
    entries_ += "<dict><key>locationID</key><integer>" + std::to_string(location) +
                "</integer><key>kUSBContainerID</key><string>" + containerID +
                "</string><key>USB Product Name</key><string>" + kind + " " + number +
                "</string><key>idVendor</key><integer>1839</integer></dict>\n";
    return R"({"_name": ")" + kind + " " + number + R"(", "location_id": ")" +
           hexadecimal(location) + R"( / 1", "vendor_id": "0x1209", "product_id": "0x0001", )" +
           R"("serial_num": ")" + number +
           R"(", "manufacturer": "Larkspur", "bus_power": "900", )" +
           R"("bus_power_used": "100", "device_speed": ")" + speed + "\"";
  }

  /// A hub with seven devices and, except at the innermost level, another hub.
  std::string makeHub(int nestedLevels) {
    const std::string containerID = "hub-" + std::to_string(made_);
    slowHubs_ += (slowHubs_.empty() ? "" : ",") + device("Hub", "high_speed", containerID) + "}";
    std::string hub = device("Hub", "super_speed", containerID) + R"(, "_items": [)";
    for (std::size_t index = 0; index < devicesPerHub; ++index) {
      hub += (index == 0 ? "" : ",") +
             device("Keyboard", "low_speed", "single-" + std::to_string(made_)) + "}";
    }
    return hub + (nestedLevels > 0 ? "," + makeHub(nestedLevels - 1) : "") + "]}";
  }

  std::size_t made_ = 0;
  std::string fastHubs_;
  std::string slowHubs_;
  std::string entries_;
};

std::string deviceTreeEntry(std::size_t number) {
  const std::string name = "node-" + std::to_string(number);
  return "<dict><key>AAPL,phandle</key><data>AgAAAA==</data>"
         "<key>IOObjectClass</key><string>IOService</string>"
         "<key>IORegistryEntryID</key><integer>" +
         std::to_string(4294967296 + number) + "</integer><key>IORegistryEntryName</key><string>" +
         name +
         "</string><key>compatible</key><data>bWFjaGluZS10aW1lb3V0cwA=</data>"
         "<key>interrupt-parent</key><data>gE8y1hMAAAA=</data></dict>\n";
}

std::string portEntry(char digit, const std::string& encodedNumber) {
  return std::string("<dict><key>IORegistryEntryName</key><string>port-usb-c-") + digit +
         "</string><key>port-number</key><data>" + encodedNumber +
         "</data><key>acc_bm3-current-limit</key><data>uAsAAA==</data></dict>\n";
}

} // namespace

std::map<Question, std::string> makeLargeMachine(std::size_t deviceCount) {
  return LargeMachine(deviceCount).answers();
}

std::string makeDeviceTree(std::size_t byteCount) {
  std::string entries = portEntry('1', "AQAAAA==") + portEntry('2', "AgAAAA==") +
                        portEntry('3', "AwAAAA==") + portEntry('4', "BAAAAA==");
  for (std::size_t number = 0; entries.size() < byteCount; ++number) {
    entries += deviceTreeEntry(number);
  }
  return propertyList("<dict><key>IORegistryEntryChildren</key><array>\n" + entries +
                      "</array></dict>\n");
}

} // namespace tamberline
