#include "platform/macos/usb_host_report.h"

#include "base/letter_case.h"
#include "base/text.h"
#include "reports/json_values.h"
#include "reports/report_decoding.h"
#include "reports/usb_report.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

using nlohmann::json;

constexpr std::string_view digits = "0123456789";
constexpr std::string_view digitsAndSeparators = "0123456789.,";
constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view gapSuffixes =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789()";

/// Removes and returns the start of `text` up to the first character that is one of `ends`.
std::string_view takeUntil(std::string_view ends, std::string_view& text) {
  const std::string_view taken = text.substr(0, text.find_first_of(ends));
  text.remove_prefix(taken.size());
  return taken;
}

/// Removes and returns the leading part of `text` that consists of `characters`.
std::string_view takeWhile(std::string_view characters, std::string_view& text) {
  const std::string_view taken = text.substr(0, text.find_first_not_of(characters));
  text.remove_prefix(taken.size());
  return taken;
}

std::string withoutSeparators(std::string_view number) {
  return replacedAll(replacedAll(number, ".", ""), ",", "");
}

/// A number in a text and the word after it: "4.48" and "w", "896" and "ma".
struct Measure {
  std::string_view number; // digits, points and commas; starts with a digit
  std::string unit;        // in lower case; empty when something else follows

  /// The number in thousandths of the unit; further decimals are dropped. The first point or comma
  /// is the decimal separator. Absent if more than six digits precede it.
  std::optional<std::int64_t> thousandths() const {
    const std::size_t point = std::min(number.find_first_of(".,"), number.size());
    std::string decimals = withoutSeparators(number.substr(point)).substr(0, 3);
    decimals.resize(3, '0');
    return point <= 6 ? parseDecimal(std::string(number.substr(0, point)) + decimals)
                      : std::nullopt;
  }
};

/// The system writes these texts in the user's language: "4.48 W (896 mA)", "4,48 W (1.500 mA)",
/// "Up to 10 Gb/s".
std::vector<Measure> measuresIn(std::string_view text) {
  std::vector<Measure> measures;
  takeUntil(digits, text);
  while (!text.empty()) {
    const std::string_view number = takeWhile(digitsAndSeparators, text);
    takeUntil(gapSuffixes, text);
    measures.push_back({number, lowerCased(takeWhile(letters, text))});
    takeUntil(digits, text);
  }
  return measures;
}

/// Absent if the text contains no speed.
std::optional<std::int64_t> kilobitsPerSecondIn(std::string_view text) {
  for (const Measure& measure : measuresIn(text)) {
    const bool isInGigabits = measure.unit.starts_with("gb");
    const std::optional<std::int64_t> thousandths = measure.thousandths();
    if (thousandths && (isInGigabits || measure.unit.starts_with("mb"))) {
      return isInGigabits ? *thousandths * 1000 : *thousandths;
    }
  }
  return std::nullopt;
}

/// The older section's token for a speed. There is none above 10 Gb/s and none for speeds that USB
/// does not define; such a speed becomes a text in a uniform spelling, which is shown unchanged.
std::string speedToken(std::string_view linkSpeed) {
  static constexpr std::array<std::pair<std::int64_t, const char*>, 5> tokens = {{
      {1'500, "low_speed"},
      {12'000, "full_speed"},
      {480'000, "high_speed"},
      {5'000'000, "super_speed"},
      {10'000'000, "super_speed_plus"},
  }};
  const std::optional<std::int64_t> speed = kilobitsPerSecondIn(linkSpeed);
  if (!speed) {
    return std::string(trimmed(linkSpeed));
  }
  for (const auto& [kilobits, token] : tokens) {
    if (*speed == kilobits) {
      return token;
    }
  }
  constexpr std::int64_t kilobitsOfGigabit = 1'000'000;
  const auto kilobits = static_cast<double>(*speed);
  return *speed >= kilobitsOfGigabit ? generalText(kilobits / 1'000'000) + " Gb/s"
                                     : generalText(kilobits / 1'000) + " Mb/s";
}

/// Absent if the text contains neither a current nor a power, which is converted at 5 V. Currents
/// are whole numbers, so a point or comma in one can only group its digits.
std::optional<std::int64_t> milliamperesIn(std::string_view text) {
  const std::vector<Measure> measures = measuresIn(text);
  for (const Measure& measure : measures) {
    if (measure.unit == "ma") {
      return parseDecimal(withoutSeparators(measure.number));
    }
  }
  constexpr std::int64_t volts = 5;
  for (const Measure& measure : measures) {
    const std::optional<std::int64_t> milliwatts = measure.thousandths();
    if (measure.unit == "w" && milliwatts) {
      return *milliwatts / volts;
    }
  }
  return std::nullopt;
}

/// Also absent if the report states that the device does not provide it.
std::optional<std::string> providedText(const json& entry, std::string_view key) {
  std::optional<std::string> text = textMember(entry, key);
  return text == "Not Provided" ? std::nullopt : text;
}

void copyText(const json& from, std::string_view key, json& to, const char* olderKey) {
  if (std::optional<std::string> text = providedText(from, key)) {
    to[olderKey] = std::move(*text);
  }
}

/// The words for true and for false; any other word means unknown.
using FlagWords = std::pair<std::string_view, std::string_view>;

void copyFlag(const json& from, std::string_view key, const FlagWords& words, json& to,
              const char* ownKey) {
  const std::string word = textMember(from, key, "");
  if (word == words.first || word == words.second) {
    to[ownKey] = word == words.first ? "TRUE" : "FALSE";
  }
}

/// The older section's name for the same bus, from which its speed is derived. That section called
/// every controller above USB 3.0 a USB 3.1 one, including those of USB4 ports.
std::string olderBusName(const std::string& name) {
  static constexpr std::array<std::pair<std::string_view, const char*>, 6> names = {{
      {"USB 2.", "USB20Bus"},
      {"USB 2 ", "USB20Bus"},
      {"USB 3.0", "USB30Bus"},
      {"USB 3 ", "USB30Bus"},
      {"USB 3.", "USB31Bus"},
      {"USB 4", "USB31Bus"},
  }};
  const auto* found = std::find_if(names.begin(), names.end(),
                                   [&](const auto& known) { return contains(name, known.first); });
  return found == names.end() ? name : found->second;
}

/// Whether the driver is for a computer's own ports, such as "AppleT8122USBXHCI", or for a bus that
/// newer computers have beside those of their ports, "AppleT6050USBXHCIAUSS". Drivers for another
/// maker's controller, which some computers have for their larger ports, have other suffixes:
/// "AppleT8103USBXHCIFL1100".
bool isOwn(std::string_view driver) {
  constexpr std::string_view start = "AppleT";
  if (!driver.starts_with(start)) {
    return false;
  }
  std::string_view rest = driver.substr(start.size());
  const std::string_view number = takeWhile(digits, rest);
  return !number.empty() && (rest == "USBXHCI" || rest == "USBXHCIAUSS");
}

bool isKnownToUSBBus(const std::string& driver) {
  return USBBus{.hostController = driver}.isInternalTBController();
}

/// A name by which USBBus recognises the bus as one whose devices are on the computer's Thunderbolt
/// ports.
std::string portBusName(const std::string& driver) {
  return isKnownToUSBBus(driver) ? driver : driver + ", like AppleT8132USBXHCI";
}

/// A name by which USBBus does not recognise the bus, so that it gets its own card.
std::string portlessBusName(const std::string& driver) {
  return isKnownToUSBBus(driver) ? replacedAll(driver, "USBXHCI", "USB-XHCI") : driver;
}

class Translation {
public:
  Translation(VolumesByLocation volumes, const ThunderboltPorts& ports)
      : volumes_(std::move(volumes)), ports_(ports) {}

  /// Appends one bus, or two if only some of its devices are on ports with Thunderbolt.
  void appendBuses(const json& entry, json& buses) {
    json older = json::object();
    if (const std::optional<std::string> name = textMember(entry, "_name")) {
      older["_name"] = olderBusName(*name);
    }
    const std::string driver = providedText(entry, "Driver").value_or("");
    Devices devices = devicesOf(entry, isOwn(driver));
    // A bus of the computer's own controllers without devices counts as one of a port, so that it
    // gets no card.
    const bool isOfAPort = !devices.onPorts.empty() || (isOwn(driver) && devices.others.empty());
    if (isOfAPort) {
      buses.push_back(withDevices(older, portBusName(driver), std::move(devices.onPorts)));
    }
    if (!isOfAPort || !devices.others.empty()) {
      json bus = withDevices(older, portlessBusName(driver), std::move(devices.others));
      if (isOwn(driver)) {
        bus["tamberline_is_built_in"] = "TRUE"; // so that no dock claims it
      }
      buses.push_back(std::move(bus));
    }
  }

private:
  /// The report and its buses take three levels of nesting, each tier of devices takes two, and a
  /// device's volumes take four.
  static constexpr int maxTier = (maxReportNesting - 3 - 4) / 2;

  struct Devices {
    json onPorts = json::array();
    json others = json::array();
  };

  static json withDevices(json bus, const std::string& driver, json devices) {
    if (!driver.empty()) {
      bus["host_controller"] = driver;
    }
    if (!devices.empty()) {
      bus["_items"] = std::move(devices);
    }
    return bus;
  }

  bool isOnPort(const json& device) const {
    const auto locationID = parseLocationID(textMember(device, "location_id", ""));
    return locationID && ports_.contains(physicalPortOf(*locationID));
  }

  Devices devicesOf(const json& entry, bool isOwnController) {
    Devices devices;
    for (const json& item : objectsMember(entry, "_items")) {
      json translated = device(item, 1);
      const bool isOfAPort = isOwnController && isOnPort(translated);
      (isOfAPort ? devices.onPorts : devices.others).push_back(std::move(translated));
    }
    return devices;
  }

  void addDevices(const json& entry, int tier, json& older) {
    const json& items = objectsMember(entry, "_items");
    if (items.empty() || tier > maxTier) {
      return;
    }
    json devices = json::array();
    for (const json& item : items) {
      devices.push_back(device(item, tier));
    }
    older["_items"] = std::move(devices);
  }

  json device(const json& item, int tier) {
    json older = json::object();
    if (const std::optional<std::string> name = textMember(item, "_name")) {
      older["_name"] = trimmed(*name); // some names start with a blank
    }
    if (const std::optional<std::string> vendor = providedText(item, "USBDeviceKeyVendorName")) {
      older["manufacturer"] = trimmed(*vendor);
    }
    copyText(item, "USBDeviceKeyVendorID", older, "vendor_id");
    copyText(item, "USBDeviceKeyProductID", older, "product_id");
    copyText(item, "USBDeviceKeySerialNumber", older, "serial_num");
    copyText(item, "USBKeyLocationID", older, "location_id");
    if (const auto linkSpeed = providedText(item, "USBDeviceKeyLinkSpeed")) {
      older["device_speed"] = speedToken(*linkSpeed);
    }
    copyFlag(item, "USBKeyHardwareType", {"Non-removable", "Removable"}, older,
             "tamberline_is_built_in");
    copyFlag(item, "USBDeviceKeyUSB4Tunnel", {"Yes", "No"}, older, "tamberline_is_tunneled");
    addPower(item, older);
    addMedia(item, older);
    addDevices(item, tier + 1, older);
    return older;
  }

  /// The power allocated to a device is the max that the device declared, so it is a rating and not
  /// a measurement. The report does not contain what the port could supply.
  static void addPower(const json& item, json& older) {
    const std::string allocation = textMember(item, "USBDeviceKeyPowerAllocation", "");
    if (const std::optional<std::int64_t> allocatedMa = milliamperesIn(allocation)) {
      older["bus_power_used"] = std::to_string(*allocatedMa);
    }
  }

  void addMedia(const json& item, json& older) {
    const auto locationID = parseLocationID(textMember(item, "USBKeyLocationID", ""));
    const auto found = locationID ? volumes_.find(*locationID) : volumes_.end();
    if (found == volumes_.end()) {
      return;
    }
    json volumes = json::array();
    for (const USBVolume& volume : found->second) {
      volumes.push_back({{"_name", volume.name}, {"mount_point", volume.mountPoint}});
    }
    older["Media"] = json::array({json{{"volumes", std::move(volumes)}}});
    volumes_.erase(found);
  }

  VolumesByLocation volumes_; // of devices not translated yet
  const ThunderboltPorts& ports_;
};

} // namespace

json usbReportFrom(const json& hostReport, VolumesByLocation volumes,
                   const ThunderboltPorts& ports) {
  Translation translation(std::move(volumes), ports);
  json buses = json::array();
  for (const json& entry : objectsMember(hostReport, usbHostSectionKey)) {
    translation.appendBuses(entry, buses);
  }
  return {{usbSectionKey, std::move(buses)}};
}

bool needsThunderboltPorts(const json& hostReport) {
  const json& entries = objectsMember(hostReport, usbHostSectionKey);
  return std::any_of(entries.begin(), entries.end(), [](const json& entry) {
    return isOwn(textMember(entry, "Driver", "")) && !objectsMember(entry, "_items").empty();
  });
}

} // namespace tamberline
