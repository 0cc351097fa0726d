#include "comparison/comparison.h"
#include "comparison/comparison_output.h"
#include "comparison/inventories.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

constexpr std::size_t dock = 1;
constexpr std::size_t ssd = 3;
constexpr std::size_t mouse = 4;
constexpr std::size_t stick = 6;

std::string differences(const Inventory& before, const Inventory& after) {
  return comparisonText(comparisonOf(before, after), /*useColors=*/false);
}

/// The desk with one item changed.
template <typename Edit>
Inventory deskWith(std::size_t index, Edit edit) {
  Inventory desk = deskInventory();
  edit(desk.at(index));
  return desk;
}

Inventory deskWithout(std::size_t index) {
  Inventory desk = deskInventory();
  desk.erase(desk.begin() + static_cast<std::ptrdiff_t>(index));
  for (InventoryItem& item : desk) {
    if (item.parent > index) {
      item.parent = *item.parent - 1;
    }
  }
  return desk;
}

TEST(Comparison, FindsNothingInTheSameState) {
  EXPECT_EQ(differences(deskInventory(), deskInventory()), "No difference\n");
  EXPECT_EQ(differences({}, {}), "No difference\n");
}

TEST(Comparison, FindsWhatCameAndWent) {
  EXPECT_EQ(differences(deskInventory(), deskWithout(stick)), "Gone  Stick  Port 2\n");
  EXPECT_EQ(differences(deskWithout(mouse), deskInventory()), "New  Mouse  Port 1 › Dock\n");
}

TEST(Comparison, FindsWhatMovedToAnotherPort) {
  const Inventory after = deskWith(stick, [](InventoryItem& item) {
    item.parent = 0;
    item.id = "/port1/usb:S2";
  });
  EXPECT_EQ(differences(deskInventory(), after), "Moved  Stick  Port 2 → Port 1\n");
}

TEST(Comparison, DoesNotRepeatAMoveForWhatIsBelow) {
  const Inventory after = deskWith(dock, [](InventoryItem& item) { item.parent = 5; });
  EXPECT_EQ(differences(deskInventory(), after), "Moved  Dock  Port 1 → Port 2\n");
}

TEST(Comparison, TakesADeviceWithoutASerialNumberElsewhereForAnother) {
  const Inventory after = deskWith(mouse, [](InventoryItem& item) { item.parent = 5; });
  EXPECT_EQ(differences(deskInventory(), after),
            "New  Mouse  Port 2\nGone  Mouse  Port 1 › Dock\n");
}

TEST(Comparison, FindsWhatBecameFasterOrSlower) {
  const Inventory slow = deskWith(ssd, [](InventoryItem& item) { item.speedGbps = 0.48; });
  EXPECT_EQ(differences(deskInventory(), slow), "Slower  SSD  10 Gb/s → 480 Mb/s\n");
  EXPECT_EQ(differences(slow, deskInventory()), "Faster  SSD  480 Mb/s → 10 Gb/s\n");
}

TEST(Comparison, FindsWhatDrawsMoreOrLess) {
  const Inventory after = deskWith(stick, [](InventoryItem& item) { item.ratedMa = 500; });
  EXPECT_EQ(differences(deskInventory(), after), "Draws more  Stick  200 mA → 500 mA\n");
  EXPECT_EQ(differences(after, deskInventory()), "Draws less  Stick  500 mA → 200 mA\n");
}

TEST(Comparison, IgnoresSmallDifferencesOfMeasuredPower) {
  const auto with = [](double watts) {
    return deskWith(0, [&](InventoryItem& item) { item.measuredWatts = watts; });
  };
  EXPECT_EQ(differences(deskInventory(), with(8.4)), "No difference\n");
  EXPECT_EQ(differences(deskInventory(), with(12.5)), "Draws more  Port 1  8 W → 12.5 W\n");
}

TEST(Comparison, FindsAnotherRatingOfTheAdapter) {
  Inventory before = deskInventory();
  before.push_back({.kind = InventoryItem::Kind::adapter,
                    .localKey = "charger",
                    .name = "96W Adapter",
                    .ratedWatts = 96});
  Inventory after = before;
  after.back().ratedWatts = 60;
  after.back().parent = 5;
  EXPECT_EQ(differences(before, after),
            "Moved  96W Adapter  → Port 2\nSupplies less  96W Adapter  96 W → 60 W\n");
}

TEST(Comparison, FindsVolumes) {
  const Inventory after = deskWith(ssd, [](InventoryItem& item) {
    item.volumes = {{"Film", "/Volumes/Film"}};
  });
  EXPECT_EQ(differences(deskInventory(), after), "Mounted  SSD  Film  /Volumes/Film\n"
                                                 "Unmounted  SSD  Data  /Volumes/Data\n");
}

TEST(Comparison, MatchesEqualSerialNumbersByPlaceFirst) {
  Inventory before = deskInventory();
  InventoryItem twin = before.at(stick);
  twin.id = "/port1/usb:S2";
  twin.parent = 0;
  before.push_back(twin);
  Inventory after = before;
  std::swap(after[stick], after[7]);
  EXPECT_EQ(differences(before, after), "No difference\n");
  EXPECT_EQ(differences(before, deskInventory()), "Gone  Stick  Port 1\n");
}

TEST(Comparison, TakesAnotherDeviceInTheSamePlaceForAnother) {
  const Inventory after = deskWith(stick, [](InventoryItem& item) {
    item.serialNumber = "S3";
    item.localKey = "usb:S3";
  });
  EXPECT_EQ(differences(deskInventory(), after), "New  Stick  Port 2\nGone  Stick  Port 2\n");
}

} // namespace
} // namespace tamberline
