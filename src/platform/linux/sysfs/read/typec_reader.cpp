#include "base/text.h"
#include "platform/linux/sysfs/read/attribute_files.h"
#include "platform/linux/sysfs/read/device_folders.h"
#include "platform/linux/sysfs/read/device_readers.h"
#include "platform/linux/sysfs/read/power_delivery_reader.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tamberline::sysfs {
namespace {

namespace fs = std::filesystem;

/// A word of the identity that a partner or cable reports, such as "0x1c0005ac"; 0 if there is
/// none.
std::uint64_t identityWord(const fs::path& folder, const char* name) {
  std::string_view digits;
  const std::string text = readTextOrNothing(folder / "identity" / name);
  digits = text;
  if (digits.starts_with("0x")) {
    digits.remove_prefix(2);
  }
  const std::int64_t word = parseHexadecimal(digits).value_or(0);
  return word < 0 ? 0 : static_cast<std::uint64_t>(word);
}

/// Alternate modes are folders such as "port0-partner.1".
std::vector<fs::path> alternateModes(const fs::path& partner, const std::string& partnerName) {
  std::vector<fs::path> modes;
  for (const std::string& name : namesIn(partner)) {
    if (name.starts_with(partnerName + ".")) {
      modes.push_back(partner / name);
    }
  }
  return modes;
}

PartnerVideo videoIn(const std::vector<fs::path>& modes) {
  constexpr const char* displayPort = "ff01";
  PartnerVideo video = PartnerVideo::none;
  for (const fs::path& mode : modes) {
    if (readTextOrNothing(mode / "svid") == displayPort) {
      const bool isActive = readTextOrNothing(mode / "active") == "yes";
      video = isActive ? PartnerVideo::active : std::max(video, PartnerVideo::offered);
    }
  }
  return video;
}

bool areThunderbolt(const std::vector<fs::path>& modes) {
  return std::any_of(modes.begin(), modes.end(), [](const fs::path& mode) {
    return readTextOrNothing(mode / "svid") == "8087";
  });
}

PartnerAccessory readAccessory(const fs::path& partner) {
  const std::string mode = readTextOrNothing(partner / "accessory_mode");
  if (mode == "analog_audio") {
    return PartnerAccessory::audio;
  }
  return mode == "debug" ? PartnerAccessory::debug : PartnerAccessory::none;
}

/// The max power of the fixed voltages. Ranges are not counted: their max voltage is not available
/// at their max current.
std::optional<double> maxFixedWatts(const std::vector<PowerOffer>& offers) {
  double most = 0;
  for (const PowerOffer& offer : offers) {
    if (offer.kind == PowerOfferKind::fixed) {
      most = std::max(most, static_cast<double>(offer.maxMillivolts) *
                                static_cast<double>(offer.milliamperes.value_or(0)) / 1'000'000);
    }
  }
  constexpr double maxCredibleWatts = 10'000;
  return most > 0 && most <= maxCredibleWatts ? std::optional(most) : std::nullopt;
}

std::optional<std::int64_t> milliamperesAtFiveVolts(const std::vector<PowerOffer>& offers) {
  const auto found = std::find_if(offers.begin(), offers.end(), [](const PowerOffer& offer) {
    return offer.kind == PowerOfferKind::fixed && offer.maxMillivolts == 5000 &&
           offer.milliamperes > 0;
  });
  return found == offers.end() ? std::nullopt : found->milliamperes;
}

/// The lanes of a pin assignment: two of the four stay with USB in D and F.
std::optional<std::int64_t> lanesOfPins(const std::string& assignment) {
  if (assignment == "C" || assignment == "E") {
    return 4;
  }
  return assignment == "D" || assignment == "F" ? std::optional<std::int64_t>(2) : std::nullopt;
}

/// The kernel's video driver adds a folder to the mode that it uses.
void readVideo(const std::vector<fs::path>& modes, TypecPartner& partner) {
  for (const fs::path& mode : modes) {
    const fs::path driver = mode / "displayport";
    if (doesExist(driver)) {
      partner.videoLanes = lanesOfPins(readChoice(driver / "pin_assignment"));
      const auto present = readNumber(driver / "hpd");
      partner.isScreenPresent = present ? std::optional(*present > 0) : std::nullopt;
      return;
    }
  }
}

std::optional<TypecPartner> readPartner(const fs::path& ports, const std::string& portName) {
  const std::string name = portName + "-partner";
  const fs::path folder = ports / name;
  if (!doesExist(folder)) {
    return std::nullopt;
  }
  constexpr unsigned productShift = 16;
  const std::vector<fs::path> modes = alternateModes(folder, name);
  const std::int64_t countOfModes = readNumber(folder / "number_of_alternate_modes").value_or(0);
  TypecPartner partner{
      .vendorId = static_cast<std::int64_t>(identityWord(folder, "id_header") & 0xFFFFU),
      .productId =
          static_cast<std::int64_t>((identityWord(folder, "product") >> productShift) & 0xFFFFU),
      .video = videoIn(modes),
      .accessory = readAccessory(folder),
      .hasAlternateModes = !modes.empty() || countOfModes > 0,
      .knowsThunderbolt = areThunderbolt(modes),
      .offers = readSourceOffers(folder),
  };
  partner.offeredWatts = maxFixedWatts(partner.offers);
  readVideo(modes, partner);
  return partner;
}

std::optional<TypecCable> readCable(const fs::path& ports, const std::string& portName) {
  const fs::path folder = ports / (portName + "-cable");
  if (!doesExist(folder)) {
    return std::nullopt;
  }
  constexpr std::uint64_t isOptical = 1U << 10U; // in the second word of an active cable
  const std::string type = readTextOrNothing(folder / "type");
  const bool isActive = type == "active";
  const bool reportsOptical = (identityWord(folder, "product_type_vdo2") & isOptical) != 0;
  const auto revision = readNumber(folder / "usb_power_delivery_revision"); // such as "3.1"
  return TypecCable{.isActive = isActive,
                    .isOptical = isActive && reportsOptical,
                    .isPassive = type == "passive",
                    .plug = readTextOrNothing(folder / "plug_type"),
                    .identity =
                        cableIdentityIn(identityWord(folder, "id_header"),
                                        identityWord(folder, "product_type_vdo1"), revision >= 3)};
}

/// Test beds list their USB-C ports as a bus instead of a class.
fs::path portsFolder(const fs::path& sysfs) {
  const fs::path folder = classFolder(sysfs, "typec");
  return doesExist(folder) ? folder : busFolder(sysfs, "typec");
}

PowerRole readRole(const fs::path& port) {
  const std::string role = readChoice(port / "power_role");
  if (role == "source") {
    return PowerRole::source;
  }
  return role == "sink" ? PowerRole::sink : PowerRole::unknown;
}

} // namespace

std::map<int, TypecPort> readTypecPorts(const fs::path& sysfs) {
  const fs::path folder = portsFolder(sysfs);
  std::map<int, TypecPort> ports;
  for (const std::string& name : namesIn(folder)) {
    const auto number = typecPortNumber(name);
    if (!number) {
      continue;
    }
    const fs::path port = folder / name;
    ports.insert_or_assign(*number,
                           TypecPort{
                               .role = readRole(port),
                               .isDualRole = readChoice(port / "port_type") == "dual",
                               .offeredMa = milliamperesAtFiveVolts(readSourceOffers(port)),
                               .intake = readSinkOffers(port),
                               .powerMode = readTextOrNothing(port / "power_operation_mode"),
                               .partner = readPartner(folder, name),
                               .cable = readCable(folder, name),
                               .location = physicalLocation(port),
                               .controller = owningDevice(port),
                           });
  }
  return ports;
}

} // namespace tamberline::sysfs
