#pragma once

#include "base/shared_list.h"
#include "base/uuid.h"
#include "model/device_ability.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// What the report calls every hub that does not name itself.
inline constexpr const char* unnamedHub = "hub_device";

/// The watts of a current at USB's fixed 5 V bus voltage.
double usbWatts(std::int64_t milliamperes);

/// A mounted volume of a storage device.
struct USBVolume {
  std::string name;
  std::string mountPoint;

  friend bool operator==(const USBVolume&, const USBVolume&) = default;
};

/// One device of the USB report; a hub contains the devices behind it. Texts are from the report.
struct USBDevice {
  Uuid id = Uuid::random();
  std::string name = {};
  std::string vendorID = {};
  std::string productID = {};
  /// A token such as "high_speed"; empty if the report has none.
  std::string speed = {};
  std::string manufacturer = {};
  std::optional<std::string> serialNumber = {};
  /// mA the port offers; absent if the report has no number.
  std::optional<std::int64_t> busPower = {};
  /// mA the device is rated to draw (declared, not measured); absent if the report has no number.
  std::optional<std::int64_t> busPowerUsed = {};
  /// mA it may draw in addition, for example a phone to charge.
  std::optional<std::int64_t> extraCurrentMa = {};
  /// Whether it is part of the computer; absent if the report does not say.
  std::optional<bool> isBuiltIn = {};
  /// Whether its data goes through a USB4 link; absent if the report does not say.
  std::optional<bool> isTunneled = {};
  /// Shared by the two halves of one physical hub; absent if the registry has none.
  std::optional<std::string> containerID = {};
  /// 0-based index of the computer's port; absent without a location.
  std::optional<std::int64_t> physicalPort = {};
  /// Distinguishes it from all other devices of a scan; absent without a location.
  std::optional<std::int64_t> locationID = {};
  USBAbility ability = {};
  std::vector<USBVolume> volumes = {};
  SharedList<USBDevice> children = {};
  /// The negotiated speed if there is no token for it; absent otherwise.
  std::optional<double> untokenedGbps = {};
  /// A drive in a Thunderbolt or USB4 enclosure, connected to the computer's PCI bus.
  bool isTunneledDrive = false;

  /// The name that a person knows it by.
  std::string shownName() const;
  /// 0 if unknown.
  double speedGbps() const;
  std::string speedShortLabel() const;
  std::string speedDetailLabel() const;
  std::optional<double> powerAvailableW() const;
  std::optional<double> powerUsedW() const;
  std::optional<double> powerFraction() const;
  /// The negotiated speed divided by the bus's max, at most 1; 0 if either is unknown.
  double speedFraction(double busMaxGbps) const;
  /// Says that the device or the cable is the bottleneck; absent if it is not.
  std::optional<std::string> speedNote(double busMaxGbps) const;
  /// The same, but with the max as a number if the bus is faster than any that has a name.
  std::optional<std::string> trueSpeedNote(double maxGbps) const;

  /// A copy with other children and a new identity.
  USBDevice replacingChildren(SharedList<USBDevice> newChildren) const;
};

/// One host controller bus of the USB report.
struct USBBus {
  Uuid id = Uuid::random();
  std::string rawName = {};
  std::string hostController = {};
  SharedList<USBDevice> devices = {};
  /// The bus's max if no name says it; absent otherwise.
  std::optional<double> unnamedMaxGbps = {};
  /// The bus exists without anything plugged in, so no dock can claim it.
  bool isBuiltIn = false;

  std::string displayName() const;
  double maxSpeedGbps() const;
  std::string maxSpeedLabel() const;
  /// The current budget of each of its ports by the USB standard, in mA.
  std::int64_t portMaxMa() const;
  /// Whether its devices are directly on the computer's own USB-C ports.
  bool isInternalTBController() const;
};

/// The label of a port in the user's language, from its name in the registry.
std::string friendlyPortName(std::string_view rawName);

} // namespace tamberline
