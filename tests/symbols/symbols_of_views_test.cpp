#include "platform/linux/symbols/symbol_art.h"
#include "support/sample_records.h"
#include "views/device_icons.h"
#include "views/power_card.h"
#include "views/volume_row.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>

namespace tamberline {
namespace {

using Symbols = std::set<std::string, std::less<>>;

void expectAllInTable(const Symbols& symbols) {
  for (const std::string& symbol : symbols) {
    EXPECT_NE(artOf(symbol), "") << symbol;
  }
}

TEST(SymbolsOfViews, OfUSBDevicesAreInTheTable) {
  Symbols symbols;
  for (const char* name :
       {"",           "iphone",    "ipad",    "ipod",     "watch",       "airpods",    "speaker",
        "audio",      "ethernet",  "usb lan", "camera",   "webcam",      "keyboard",   "mouse",
        "trackpad",   "headphone", "headset", "earphone", "card reader", "cardreader", "sd reader",
        "ssd",        "disk",      "drive",   "storage",  "stick",       "flash",      "hub",
        "hub_device", "adapter",   "printer", "display",  "midi"}) {
    symbols.insert(iconFor(usbDevice(name)));
  }
  EXPECT_EQ(symbols.size(), 19U);
  expectAllInTable(symbols);
}

TEST(SymbolsOfViews, OfThunderboltDevicesAreInTheTable) {
  Symbols symbols;
  for (const char* name :
       {"", "dock", "audio", "satellite", "display", "raid", "ssd", "nvme", "drive", "hub"}) {
    symbols.insert(iconFor(thunderboltDevice(name)));
  }
  EXPECT_EQ(symbols.size(), 6U);
  expectAllInTable(symbols);
}

TEST(SymbolsOfViews, OfTheBatteryAreInTheTable) {
  Symbols symbols;
  for (std::int64_t level = 0; level <= 100; ++level) {
    for (const bool isCharging : {false, true}) {
      for (const bool isFullyCharged : {false, true}) {
        const BatteryInfo battery{
            .stateOfCharge = level, .isFullyCharged = isFullyCharged, .isCharging = isCharging};
        symbols.insert(powerCard({}, battery).battery->icon);
      }
    }
  }
  EXPECT_EQ(symbols.size(), 6U);
  expectAllInTable(symbols);
}

TEST(SymbolsOfViews, OfVolumesAreInTheTable) {
  const BenchmarkPhase phases[] = {{BenchmarkPhase::Idle{}},
                                   {BenchmarkPhase::Running{}},
                                   {BenchmarkPhase::Done{}},
                                   {BenchmarkPhase::Failed{}}};
  const std::optional<EjectState> ejections[] = {std::nullopt, EjectState{EjectState::Ejecting{}},
                                                 EjectState{EjectState::Failed{}}};
  Symbols symbols;
  for (const BenchmarkPhase& phase : phases) {
    for (const std::optional<EjectState>& eject : ejections) {
      const VolumeTools tools = volumeTools(phase, eject);
      for (const std::optional<SymbolButton>& button : {tools.testButton, tools.ejectButton}) {
        if (button) {
          symbols.insert(button->symbol);
        }
      }
    }
  }
  EXPECT_EQ(symbols.size(), 4U);
  expectAllInTable(symbols);
}

/// The symbols of badges, cards, header, search field and menus of the panel.
TEST(SymbolsOfViews, OfThePanelItselfAreInTheTable) {
  expectAllInTable({"arrow.clockwise", "arrow.up.circle", "arrow.up.circle.fill", "bolt.fill",
                    "bolt.horizontal", "cable.connector", "chevron.right",
                    "exclamationmark.triangle", "info.circle", "magnifyingglass", "minus.circle",
                    "powerplug.fill", "rectangle.compress.vertical", "rectangle.expand.vertical",
                    "xmark.circle.fill"});
}

} // namespace
} // namespace tamberline
