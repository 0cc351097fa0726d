#include "support/sample_records.h"
#include "views/device_icons.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(USBDeviceIcon, IsGuessedFromTheName) {
  const struct {
    const char* name;
    const char* symbol;
  } rows[] = {
      {"iPhone", "iphone"},
      {"iPad Pro", "ipad"},
      {"iPod touch", "ipod"},
      {"Watch Charger", "applewatch"},
      {"AirPods Case", "airpods"},
      {"Desk Speaker", "speaker.wave.2"},
      {"USB Audio", "speaker.wave.2"},
      {"Gigabit Ethernet", "network"},
      {"USB 10/100 LAN", "network"},
      {"Desk Camera", "camera"},
      {"HD Webcam", "camera"},
      {"Lettera Keyboard", "keyboard"},
      {"Optical Mouse", "computermouse"},
      {"Big Trackpad", "computermouse"},
      {"Gaming Headset", "headphones"},
      {"Studio Headphones", "headphones"},
      {"Quarry SSD", "externaldrive"},
      {"External Disk", "externaldrive"},
      {"Card Reader", "sdcard"},
      {"Serial Adapter", "cable.connector"},
      {"FTDI Serial", "cable.connector"},
      {"Papermoor 420 Printer", "printer"},
      {"Portable Display", "display"},
      {"USB Monitor", "display"},
      {"MIDI Interface", "pianokeys"},
      {"Stage Piano", "pianokeys"},
      {"Drum Pad", "pianokeys"},
      {"Something else", "memorychip"},
      {"", "memorychip"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(iconFor(usbDevice(row.name)), row.symbol);
  }
}

TEST(USBDeviceIcon, IgnoresLetterCase) {
  EXPECT_EQ(iconFor(usbDevice("IPHONE")), "iphone");
  EXPECT_EQ(iconFor(usbDevice("usb KEYBOARD")), "keyboard");
}

TEST(USBDeviceIcon, FollowsTheFirstWordThatMatches) {
  const struct {
    const char* name;
    const char* symbol;
  } rows[] = {
      {"iPad or iPhone", "iphone"},
      {"iPod or iPad", "ipad"},
      {"Watch and iPod", "ipod"},
      {"AirPods or Watch", "applewatch"},
      {"Audio AirPods", "airpods"},
      {"Ethernet Audio Bridge", "speaker.wave.2"},
      {"Camera with Ethernet", "network"},
      {"Keyboard with Camera", "camera"},
      {"Mouse and Keyboard", "keyboard"},
      {"Headset with Mouse", "computermouse"},
      {"Disk in a Headphone", "headphones"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(iconFor(usbDevice(row.name)), row.symbol);
  }
}

TEST(USBDeviceIcon, OfAnUnnamedHubIsAlwaysTheBranch) {
  EXPECT_EQ(iconFor(usbDevice("hub_device")), "arrow.triangle.branch");
  EXPECT_EQ(iconFor(usbDevice("hub_device", {usbDevice("Disk")})), "arrow.triangle.branch");
}

TEST(USBDeviceIcon, OfANamedHubFollowsItsName) {
  EXPECT_EQ(iconFor(usbDevice("Quarry Box", {usbDevice("Disk")})), "arrow.triangle.branch");
  EXPECT_EQ(iconFor(usbDevice("Quarry Hub")), "arrow.triangle.branch");
  EXPECT_EQ(iconFor(usbDevice("Keyboard Hub", {usbDevice("Keys")})), "keyboard");
}

TEST(ThunderboltDeviceIcon, IsGuessedFromTheName) {
  const struct {
    const char* name;
    const char* symbol;
  } rows[] = {
      {"Harbour Dock", "dock.rectangle"}, {"HARBOUR DOCK", "dock.rectangle"},
      {"Studio Audio", "hifispeaker"},    {"Satellite", "externaldrive"},
      {"Studio Display", "display"},      {"Quarry RAID", "externaldrive"},
      {"Quarry SSD", "externaldrive"},    {"Element Hub", "arrow.triangle.branch"},
      {"Something else", "memorychip"},   {"", "memorychip"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(iconFor(thunderboltDevice(row.name)), row.symbol);
  }
}

TEST(ThunderboltDeviceIcon, FollowsTheFirstWordThatMatches) {
  EXPECT_EQ(iconFor(thunderboltDevice("Audio Dock")), "dock.rectangle");
  EXPECT_EQ(iconFor(thunderboltDevice("Satellite Audio")), "hifispeaker");
}

} // namespace
} // namespace tamberline
