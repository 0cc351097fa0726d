#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class PanelRescan : public PanelFixture {
protected:
  /// The items of the list, visible or not; their addresses show whether any was created anew.
  std::vector<const QQuickItem*> listItems() {
    std::vector<const QQuickItem*> items;
    append(listView(), items);
    return items;
  }

  static void append(const QQuickItem* item, std::vector<const QQuickItem*>& items) {
    items.push_back(item);
    for (const QQuickItem* child : item->childItems()) {
      append(child, items);
    }
  }

  static std::vector<ReportedDevice> devices(const std::vector<std::string>& names) {
    std::vector<ReportedDevice> reported;
    for (const std::string& name : names) {
      reported.push_back({name, R"("serial_num": "no )" + name + R"(", "device_speed": "high_speed",
                                   "bus_power_used": "100")"});
    }
    return reported;
  }

  bool isOpen(const QString& start) {
    return rows().index(indexOfRowNamed(start)).data(PanelListModel::ExpandedRole).toBool();
  }
};

TEST_F(PanelRescan, ChangesNothingIfNothingChanged) {
  useSample("desk");
  openPanel();
  expandAll();
  listView()->setProperty("contentY", 200);
  settle();
  const std::vector<const QQuickItem*> items = listItems();
  const std::string places = placesOfVisibleItems(window());
  rescan();
  EXPECT_EQ(listItems(), items);
  EXPECT_EQ(placesOfVisibleItems(window()), places);
  EXPECT_EQ(listPosition(), 200);
}

TEST_F(PanelRescan, KeepsRowsOpenAndThePositionOfTheList) {
  useSample("desk");
  openPanel();
  press("Thunderbolt Port 1");
  press("Thunderbolt Port 2");
  listView()->setProperty("contentY", 20);
  settle();
  events->changeRegistry();
  advance(400ms);
  EXPECT_TRUE(isOpen("Thunderbolt Port 1"));
  EXPECT_TRUE(isOpen("Thunderbolt Port 2"));
  EXPECT_FALSE(isOpen("Thunderbolt Port 3"));
  EXPECT_EQ(listPosition(), 20);
}

TEST_F(PanelRescan, MovesOnlyRowsBelowANewDevice) {
  answerWithDevices(*machine, devices({"Keys", "Mouse"}));
  openPanel();
  expandAll();
  const QQuickItem* keys = rowItem(indexOfRowNamed("Keys"));
  const QQuickItem* mouse = rowItem(indexOfRowNamed("Mouse"));
  const double topOfMouse = mouse->y();
  const int height = window().height();
  answerWithDevices(*machine, devices({"Keys", "Camera", "Mouse"}));
  rescan();
  ASSERT_GE(indexOfRowNamed("Camera"), 0);
  EXPECT_EQ(rowItem(indexOfRowNamed("Keys")), keys);
  EXPECT_EQ(rowItem(indexOfRowNamed("Mouse")), mouse);
  EXPECT_GT(mouse->y(), topOfMouse);
  EXPECT_GT(window().height(), height);
  EXPECT_TRUE(isOpen("Thunderbolt Port 1"));
}

TEST_F(PanelRescan, ClosesTheGapOfARemovedDevice) {
  answerWithDevices(*machine, devices({"Keys", "Camera", "Mouse"}));
  openPanel();
  expandAll();
  const QQuickItem* mouse = rowItem(indexOfRowNamed("Mouse"));
  const int height = window().height();
  answerWithDevices(*machine, devices({"Keys", "Mouse"}));
  rescan();
  EXPECT_LT(indexOfRowNamed("Camera"), 0);
  EXPECT_EQ(rowItem(indexOfRowNamed("Mouse")), mouse);
  EXPECT_LT(window().height(), height);
}

TEST_F(PanelRescan, KeepsThePositionWhenADeviceAppearsBelow) {
  answerWithPorts(*machine, 30);
  openPanel();
  listView()->setProperty("contentY", 300);
  settle();
  answerWithPorts(*machine, 31);
  rescan();
  EXPECT_EQ(rows().rowCount(), 31);
  EXPECT_EQ(listPosition(), 300);
}

TEST_F(PanelRescan, UpdatesARowInPlace) {
  answerWithDevices(*machine, {{"Keys", R"("serial_num": "1", "bus_power_used": "100")"}});
  openPanel();
  expandAll();
  const QQuickItem* keys = rowItem(indexOfRowNamed("Keys"));
  EXPECT_TRUE(isTextShown("0.5 W rated"));
  answerWithDevices(*machine, {{"Keys", R"("serial_num": "1", "bus_power_used": "200")"}});
  rescan();
  EXPECT_EQ(rowItem(indexOfRowNamed("Keys")), keys);
  EXPECT_TRUE(isTextShown("1.0 W rated"));
  EXPECT_FALSE(isTextShown("0.5 W rated"));
}

TEST_F(PanelRescan, RefreshesTheSuggestions) {
  answerWithDevices(*machine, devices({"Keys"}));
  openPanel();
  typeText("cam");
  EXPECT_TRUE(isTextShown("No matching devices"));
  answerWithDevices(*machine, devices({"Keys", "Camera"}));
  rescan();
  EXPECT_FALSE(isTextShown("No matching devices"));
  EXPECT_TRUE(findAccessibleStarting(window(), QAccessible::Button, "Camera"));
}

} // namespace
} // namespace tamberline
