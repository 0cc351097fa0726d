#include "anonymity/secret_keys.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(SecretKeys, NameWhatIdentifies) {
  const struct {
    const char* key;
    std::optional<SecretKind> kind;
  } rows[] = {
      {"serial_num", SecretKind::identifier},
      {"sppower_ac_charger_serial_number", SecretKind::identifier},
      {"USBDeviceKeySerialNumber", SecretKind::identifier},
      {"USB Serial Number", SecretKind::identifier},
      {"kUSBSerialNumberString", SecretKind::identifier},
      {"SerialString", SecretKind::identifier},
      {"switch_uid_key", SecretKind::identifier},
      {"domain_uuid_key", SecretKind::identifier},
      {"volume_uuid", SecretKind::identifier},
      {"kUSBContainerID", SecretKind::identifier},
      {"ConnectionUUID", SecretKind::identifier},
      {"mac-address-wifi0", SecretKind::identifier},
      {"mount_point", SecretKind::mountPoint},
      {"FullName", SecretKind::volumeName},
      {"iSerialNumber", std::nullopt},
      {"_name", std::nullopt},
      {"product_id", std::nullopt},
      {"vendor_id_key", std::nullopt},
      {"IORegistryEntryName", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(secretKindOf(row.key), row.kind) << row.key;
  }
}

TEST(SecretKeys, NameTheTokensThatParsersRead) {
  for (const char* key : {"device_speed", "current_speed_key", "tamberline_mbps",
                          "PortTypeDescription", "TransportsActive", "USBDeviceKeyLinkSpeed"}) {
    EXPECT_TRUE(isToken(key)) << key;
  }
  for (const char* key : {"_name", "manufacturer", "device_name_key", "IORegistryEntryName"}) {
    EXPECT_FALSE(isToken(key)) << key;
  }
}

} // namespace
} // namespace tamberline
