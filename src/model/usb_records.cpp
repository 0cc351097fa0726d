#include "model/usb_records.h"

#include "base/text.h"
#include "i18n/loc.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tamberline {
namespace {

struct BusKind {
  std::string_view namePart;
  std::string_view displayName;
  double maxSpeedGbps;
  std::string_view maxSpeedLabel;
  std::int64_t portMaxMa;
};

const BusKind& kindOf(const USBBus& bus) {
  static constexpr std::array<BusKind, 4> kinds = {{
      {"USB31", "USB 3.1 Bus", 10.0, "max 10 Gb/s", 900},
      {"USB30", "USB 3.0 Bus", 5.0, "max 5 Gb/s", 900},
      {"USB20", "USB 2.0 Bus", 0.48, "max 480 Mb/s", 500},
      {"", "USB Bus", 5.0, "", 900}, // every name contains the empty part
  }};
  return *std::find_if(kinds.begin(), kinds.end(),
                       [&](const BusKind& kind) { return contains(bus.rawName, kind.namePart); });
}

struct SpeedKind {
  std::string_view token;
  double gbps;
  std::string_view shortLabel;
  std::string_view detailLabel;
};

const SpeedKind* findSpeedKind(std::string_view token) {
  static constexpr std::array<SpeedKind, 5> kinds = {{
      {"super_speed_plus", 10.0, "10 Gb/s", "USB 3.2 Gen 2"},
      {"super_speed", 5.0, "5 Gb/s", "USB 3.2 Gen 1"},
      {"high_speed", 0.48, "480 Mb/s", "USB 2.0 Hi-Speed"},
      {"full_speed", 0.012, "12 Mb/s", "USB 1.1 Full-Speed"},
      {"low_speed", 0.0015, "1.5 Mb/s", "USB 1.0 Low-Speed"},
  }};
  const auto* found = std::find_if(kinds.begin(), kinds.end(),
                                   [&](const SpeedKind& kind) { return kind.token == token; });
  return found == kinds.end() ? nullptr : found;
}

std::string_view roundedMaximum(double busMaxGbps) {
  if (busMaxGbps >= 10) {
    return "10 Gb/s";
  }
  return busMaxGbps >= 5 ? "5 Gb/s" : "480 Mb/s";
}

/// The decimal number after the last "@"; absent if nothing follows it.
std::optional<std::int64_t> portSuffix(std::string_view rawName) {
  const std::vector<std::string_view> pieces = splitNonEmpty(rawName, '@');
  if (pieces.size() < 2) {
    return std::nullopt;
  }
  return parseDecimal(pieces.back()).value_or(0);
}

} // namespace

double usbWatts(std::int64_t milliamperes) {
  return static_cast<double>(milliamperes) * 5.0 / 1000.0;
}

std::string USBDevice::shownName() const {
  return name == unnamedHub ? "USB Hub" : name;
}

double USBDevice::speedGbps() const {
  const SpeedKind* kind = findSpeedKind(speed);
  return kind == nullptr ? untokenedGbps.value_or(0.0) : kind->gbps;
}

std::string USBDevice::speedShortLabel() const {
  if (const SpeedKind* kind = findSpeedKind(speed)) {
    return std::string(kind->shortLabel);
  }
  return speed.empty() ? "—" : speed;
}

std::string USBDevice::speedDetailLabel() const {
  constexpr double gbpsOfTwoLanes = 20;
  if (const SpeedKind* kind = findSpeedKind(speed)) {
    return std::string(kind->detailLabel);
  }
  if (isTunneledDrive) {
    return "PCI Express";
  }
  return untokenedGbps == gbpsOfTwoLanes ? "USB 3.2 Gen 2x2" : "";
}

std::optional<double> USBDevice::powerAvailableW() const {
  if (busPower.value_or(0) < 1) {
    return std::nullopt;
  }
  return usbWatts(*busPower);
}

std::optional<double> USBDevice::powerUsedW() const {
  if (!busPowerUsed) {
    return std::nullopt;
  }
  return usbWatts(*busPowerUsed);
}

std::optional<double> USBDevice::powerFraction() const {
  const std::optional<double> availableW = powerAvailableW();
  const std::optional<double> usedW = powerUsedW();
  if (!availableW || !usedW) {
    return std::nullopt;
  }
  return std::min(*usedW / *availableW, 1.0);
}

double USBDevice::speedFraction(double busMaxGbps) const {
  if (busMaxGbps <= 0 || speedGbps() <= 0) {
    return 0.0;
  }
  return std::min(speedGbps() / busMaxGbps, 1.0);
}

std::optional<std::string> USBDevice::speedNote(double busMaxGbps) const {
  if (speedGbps() <= 0 || speedGbps() >= busMaxGbps) {
    return std::nullopt;
  }
  return Loc::speedNote(roundedMaximum(busMaxGbps));
}

std::optional<std::string> USBDevice::trueSpeedNote(double maxGbps) const {
  constexpr double maxGbpsOfNamedBuses = 10;
  std::optional<std::string> note = speedNote(maxGbps);
  return note && maxGbps > maxGbpsOfNamedBuses
             ? std::optional(Loc::speedNote(generalText(maxGbps) + " Gb/s"))
             : note;
}

USBDevice USBDevice::replacingChildren(SharedList<USBDevice> newChildren) const {
  USBDevice copy = *this;
  copy.id = Uuid::random();
  copy.children = std::move(newChildren);
  return copy;
}

std::string USBBus::displayName() const {
  return std::string(kindOf(*this).displayName);
}

double USBBus::maxSpeedGbps() const {
  return unnamedMaxGbps.value_or(kindOf(*this).maxSpeedGbps);
}

std::string USBBus::maxSpeedLabel() const {
  return unnamedMaxGbps ? "max " + generalText(*unnamedMaxGbps) + " Gb/s"
                        : std::string(kindOf(*this).maxSpeedLabel);
}

std::int64_t USBBus::portMaxMa() const {
  return kindOf(*this).portMaxMa;
}

bool USBBus::isInternalTBController() const {
  static constexpr std::array<std::string_view, 5> controllers = {
      "T6000USBXHCI", "T8112USBXHCI", "T8103USBXHCI", "T6020USBXHCI", "T8132USBXHCI"};
  return std::any_of(controllers.begin(), controllers.end(), [&](std::string_view controller) {
    return contains(hostController, controller);
  });
}

std::string friendlyPortName(std::string_view rawName) {
  if (contains(rawName, "MagSafe")) {
    return "MagSafe";
  }
  const std::optional<std::int64_t> number = portSuffix(rawName);
  if (contains(rawName, "USB-C")) {
    return number ? Loc::thunderboltPort(*number) : std::string(Loc::thunderboltPortBare());
  }
  if (contains(rawName, "HDMI")) {
    return Loc::hdmiPort(number ? std::to_string(*number) : "");
  }
  return std::string(rawName);
}

} // namespace tamberline
