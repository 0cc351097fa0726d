#include "support/hostile_machines.h"
#include "ui/layout_check.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class HostilePanel : public PanelFixture {
protected:
  void expectNoFaults() {
    for (const std::string& fault : layoutFaults(window())) {
      ADD_FAILURE() << fault;
    }
  }

  int mostTextShown() {
    qsizetype most = 0;
    for (const QQuickItem* item : visibleItems(window())) {
      most = std::max(most, item->property("text").toString().size());
    }
    return static_cast<int>(most);
  }

  void toggleRow(int index) {
    context().panel()->toggle(index);
    settle();
  }

  QString sentence(int index) {
    return rows().index(index).data(PanelListModel::SentenceRole).toString();
  }
  bool isOpen(int index) { return rows().index(index).data(PanelListModel::ExpandedRole).toBool(); }
};

class HostileNameInPanel : public HostilePanel, public testing::WithParamInterface<std::size_t> {};

TEST_P(HostileNameInPanel, DoesNotDisplaceAnyText) {
  answerWithNameEverywhere(*machine, hostileNames().at(GetParam()));
  openPanel();
  expandAll();
  EXPECT_GE(rows().rowCount(), 7);
  EXPECT_LT(mostTextShown(), 1'000);
  expectNoFaults();
  typeText("a");
  expectNoFaults();
}

INSTANTIATE_TEST_SUITE_P(Everywhere, HostileNameInPanel,
                         testing::Range(std::size_t{0}, hostileNames().size()));

TEST_F(HostilePanel, Shows255Ports) {
  answerWithManyPorts(*machine, 255);
  openPanel();
  EXPECT_EQ(rows().rowCount(), 255);
  EXPECT_TRUE(sentence(254).startsWith("Thunderbolt Port 255")) << sentence(254).toStdString();
  expectNoFaults();
  listView()->setProperty("contentY", 255 * 30);
  settle();
  expectNoFaults();
}

TEST_F(HostilePanel, ShowsAndFindsFiveThousandDevices) {
  answerWithManyDevices(*machine, 5'000);
  openPanel();
  expandAll();
  EXPECT_EQ(rows().rowCount(), 5'001);
  typeText("Device 4999");
  typeKey(Qt::Key_Return);
  advance(250ms);
  const int found = indexOfRowNamed("Device 4999");
  ASSERT_GE(found, 0);
  ASSERT_TRUE(rowItem(found) != nullptr);
  EXPECT_TRUE(isInView(*rowItem(found)));
}

TEST_F(HostilePanel, ShowsAHubBehindItself) {
  answerWithHubThatHoldsItself(*machine);
  openPanel();
  expandAll();
  EXPECT_EQ(rows().rowCount(), 8);
  for (const char* name : {"Outer", "Middle", "Inner", "Keys", "Mouse", "Camera", "Disk"}) {
    EXPECT_GE(indexOfRowNamed(name), 0) << name;
  }
  expectNoFaults();
}

TEST_F(HostilePanel, OpensOnlyOneOfThreeHundredTwins) {
  answerWithTwins(*machine, 300);
  openPanel();
  press("Thunderbolt Port 1");
  ASSERT_EQ(rows().rowCount(), 301);
  toggleRow(150);
  EXPECT_EQ(rows().rowCount(), 302);
  for (int index = 1; index < 302; ++index) {
    EXPECT_EQ(isOpen(index), index == 150) << index;
  }
  EXPECT_TRUE(sentence(151).startsWith("Child"));
  rescan();
  EXPECT_EQ(rows().rowCount(), 302);
  EXPECT_TRUE(isOpen(150));
}

TEST_F(HostilePanel, KeepsDevicesWhoseIdentifiersCoincide) {
  answerWithThunderboltEntries(*machine, {portEntry(0)});
  const std::vector<nlohmann::json> devices = {
      located(deviceEntry("a", {deviceEntry("Keys")}), 0x00100000),
      located(deviceEntry("a", {deviceEntry("Mouse")}), 0x00200000),
      located(deviceEntry("a#1", {deviceEntry("Camera")}), 0x00300000)};
  answerWithUSBEntries(*machine, {ownBusEntry(devices)});
  openPanel();
  expandAll();
  for (int round = 0; round < 3; ++round) {
    EXPECT_EQ(rows().rowCount(), 7);
    for (const char* name : {"Keys", "Mouse", "Camera"}) {
      EXPECT_GE(indexOfRowNamed(name), 0) << name;
    }
    collapseAll();
    EXPECT_EQ(rows().rowCount(), 1);
    expandAll();
    rescan();
  }
  answerWithUSBEntries(*machine, {ownBusEntry({devices.at(2), devices.at(0)})});
  rescan();
  EXPECT_EQ(rows().rowCount(), 5);
  expectNoFaults();
}

} // namespace
} // namespace tamberline
