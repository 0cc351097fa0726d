#pragma once

#include "base/shared_list.h"
#include "base/uuid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// What the report calls every hub that does not name itself.
inline constexpr const char* unnamedHub = "hub_device";

/// The watts of a current at the fixed 5 V of USB bus power.
double usbWatts(std::int64_t milliamperes);

/// A mounted volume of a storage device.
struct USBVolume {
  std::string name;
  std::string mountPoint;

  friend bool operator==(const USBVolume&, const USBVolume&) = default;
};

/// One device of the USB report; a hub holds the devices behind it. Texts are the report's own.
struct USBDevice {
  Uuid id = Uuid::random();
  std::string name = {};
  std::string vendorID = {};
  std::string productID = {};
  /// A token such as "high_speed"; empty when the report has none.
  std::string speed = {};
  std::string manufacturer = {};
  std::optional<std::string> serialNumber = {};
  /// mA the port offers; absent when the report has no number.
  std::optional<std::int64_t> busPower = {};
  /// mA the device is rated to draw (declared, not measured); absent when the report has no number.
  std::optional<std::int64_t> busPowerUsed = {};
  /// mA it may draw beyond that, a phone to charge for example.
  std::optional<std::int64_t> extraCurrentMa = {};
  /// Whether it is a part of the computer; absent when the report does not tell.
  std::optional<bool> isBuiltIn = {};
  /// Whether its data goes through a USB4 link; absent when the report does not tell.
  std::optional<bool> isTunneled = {};
  /// Shared by the two halves of one physical hub; absent when the registry has none.
  std::optional<std::string> containerID = {};
  /// 0-based index of the computer's port; absent without a location.
  std::optional<std::int64_t> physicalPort = {};
  std::vector<USBVolume> volumes = {};
  SharedList<USBDevice> children = {};
  /// The negotiated speed where no token says it; absent otherwise.
  std::optional<double> untokenedGbps = {};
  /// A drive that a Thunderbolt or USB4 enclosure connects to the computer's PCI bus.
  bool isTunneledDrive = false;

  /// The name that a person knows it by.
  std::string shownName() const;
  /// 0 when it is unknown.
  double speedGbps() const;
  std::string speedShortLabel() const;
  std::string speedDetailLabel() const;
  std::optional<double> powerAvailableW() const;
  std::optional<double> powerUsedW() const;
  std::optional<double> powerFraction() const;
  /// Negotiated speed over the bus's maximum, at most 1; 0 when either is unknown.
  double speedFraction(double busMaxGbps) const;
  /// Says that the device or the cable is the bottleneck; absent when it is not.
  std::optional<std::string> speedNote(double busMaxGbps) const;
  /// The same, with the maximum itself where the bus is faster than any that has a name.
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
  /// The bus's maximum where no name says it; absent otherwise.
  std::optional<double> unnamedMaxGbps = {};
  /// Nothing that can be plugged in brought it, so no dock has it.
  bool isBuiltIn = false;

  std::string displayName() const;
  double maxSpeedGbps() const;
  std::string maxSpeedLabel() const;
  /// The current budget in mA of each of its ports by the USB standard.
  std::int64_t portMaxMa() const;
  /// Whether its devices sit directly on the computer's own USB-C ports.
  bool isInternalTBController() const;
};

/// The label of a port in the user's language, from its name in the registry.
std::string friendlyPortName(std::string_view rawName);

} // namespace tamberline
