#include "anonymity/secret_keys.h"

#include "base/letter_case.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string>

namespace tamberline {
namespace {

/// "switch_uid_key", "USB Serial Number" and "mac-address" without what joins their words.
std::string lettersOf(std::string_view key) {
  std::string letters = lowerCased(key);
  std::erase_if(letters, [](char character) { return character < 'a' || character > 'z'; });
  for (const std::string_view ending : {"key", "string"}) {
    if (letters.ends_with(ending)) {
      letters.resize(letters.size() - ending.size());
    }
  }
  return letters;
}

bool namesIdentifier(std::string_view letters) {
  constexpr std::array<std::string_view, 6> parts = {"serial",     "uuid", "containerid",
                                                     "macaddress", "ecid", "uniquechipid"};
  const bool isIndex = letters == "iserialnumber"; // a number of the descriptor, not of the device
  return !isIndex && (letters.ends_with("uid") ||
                      std::any_of(parts.begin(), parts.end(),
                                  [&](std::string_view part) { return contains(letters, part); }));
}

} // namespace

std::optional<SecretKind> secretKindOf(std::string_view key) {
  const std::string letters = lettersOf(key);
  if (letters == "mountpoint") {
    return SecretKind::mountPoint;
  }
  if (letters == "fullname" || letters == "volumename") {
    return SecretKind::volumeName;
  }
  if (letters == "hostname" || letters == "computername") {
    return SecretKind::hostName;
  }
  return namesIdentifier(letters) ? std::optional(SecretKind::identifier) : std::nullopt;
}

bool isToken(std::string_view key) {
  constexpr std::array<std::string_view, 5> beginnings = {"tamberline", "Tamberline", "sppower_",
                                                          "IOObject", "Transport"};
  constexpr std::array<std::string_view, 23> keys = {"bus_power",
                                                     "bus_power_used",
                                                     "extra_current_used",
                                                     "current_link_width_key",
                                                     "current_speed_key",
                                                     "device_speed",
                                                     "host_controller",
                                                     "location_id",
                                                     "mode_key",
                                                     "product_id",
                                                     "vendor_id",
                                                     "receptacle_id_key",
                                                     "receptacle_status_key",
                                                     "route_string_key",
                                                     "PortDescription",
                                                     "PortTypeDescription",
                                                     "USBDeviceKeyLinkSpeed",
                                                     "USBDeviceKeyPowerAllocation",
                                                     "USBDeviceKeyProductID",
                                                     "USBDeviceKeyUSB4Tunnel",
                                                     "USBDeviceKeyVendorID",
                                                     "USBKeyHardwareType",
                                                     "USBKeyLocationID"};
  return std::find(keys.begin(), keys.end(), key) != keys.end() ||
         std::any_of(beginnings.begin(), beginnings.end(),
                     [&](std::string_view beginning) { return key.starts_with(beginning); });
}

} // namespace tamberline
