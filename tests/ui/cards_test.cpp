#include "ui/panel_fixture.h"

namespace tamberline {
namespace {

class PanelCards : public PanelFixture {
protected:
  void SetUp() override {
    useSample("desk");
    openPanel();
  }

  QString nameOf(const QString& start) {
    const auto row = findAccessibleStarting(window(), QAccessible::Button, start);
    return row ? row->name() : QString();
  }

  bool isOpen(const QString& start) { return nameOf(start).contains(", expanded"); }
  bool isClosed(const QString& start) { return nameOf(start).contains(", collapsed"); }

  /// Whether all rows that can be opened are in the same state.
  bool areAll(bool isExpanded) {
    for (int index = 0; index < rows().rowCount(); ++index) {
      const QModelIndex row = rows().index(index);
      if (row.data(PanelListModel::CanExpandRole).toBool() &&
          row.data(PanelListModel::ExpandedRole).toBool() != isExpanded) {
        return false;
      }
    }
    return true;
  }
};

TEST_F(PanelCards, BeginClosedBelowTheAdapter) {
  EXPECT_EQ(rows().rowAt(0)->kind, PanelRow::Kind::ChargerCard);
  EXPECT_TRUE(isClosed("Thunderbolt Port 1"));
  EXPECT_TRUE(isClosed("Thunderbolt Port 2"));
  EXPECT_TRUE(isClosed("Thunderbolt Port 3"));
}

TEST_F(PanelCards, OpenAndCloseAtTheirHeader) {
  const int closedHeight = window().height();
  press("Thunderbolt Port 1");
  EXPECT_TRUE(isOpen("Thunderbolt Port 1"));
  EXPECT_TRUE(isClosed("Thunderbolt Port 2"));
  EXPECT_GE(indexOfRowNamed("Harbour 11-Port Dock"), 0);
  EXPECT_GT(window().height(), closedHeight);
  press("Thunderbolt Port 1");
  EXPECT_TRUE(isClosed("Thunderbolt Port 1"));
  EXPECT_LT(indexOfRowNamed("Harbour 11-Port Dock"), 0);
  EXPECT_EQ(window().height(), closedHeight);
}

TEST_F(PanelCards, OpenAtAClick) {
  const QQuickItem* header = rowItem(indexOfRowNamed("Thunderbolt Port 2"));
  click(header->mapToScene({header->width() / 2, 16}));
  EXPECT_TRUE(isOpen("Thunderbolt Port 2"));
}

TEST_F(PanelCards, IgnoreAClickBesideThem) {
  const QQuickItem* header = rowItem(indexOfRowNamed("Thunderbolt Port 2"));
  for (const double x : {4.0, 11.0, header->width() - 11, header->width() - 4}) {
    click(header->mapToScene({x, 16}));
    EXPECT_TRUE(isClosed("Thunderbolt Port 2")) << x;
  }
  click(header->mapToScene({14, 16}));
  EXPECT_TRUE(isOpen("Thunderbolt Port 2"));
}

TEST_F(PanelCards, OpenAllAndCloseAll) {
  EXPECT_FALSE(areAll(true));
  press("Expand all");
  EXPECT_TRUE(areAll(true));
  EXPECT_GE(indexOfRowNamed("Harbour 11-Port Dock"), 0);
  press("Collapse all");
  EXPECT_TRUE(areAll(false));
  EXPECT_LT(indexOfRowNamed("Harbour 11-Port Dock"), 0);
}

TEST_F(PanelCards, CloseARowThatWasOpenedWithAllOthers) {
  press("Expand all");
  press("Harbour 11-Port Dock");
  EXPECT_TRUE(isClosed("Harbour 11-Port Dock"));
  EXPECT_TRUE(isOpen("Thunderbolt Port 1"));
}

TEST_F(PanelCards, DoNotOpenIfNothingIsBelow) {
  press("Expand all");
  const int count = rows().rowCount();
  const QQuickItem* row = rowItem(0);
  click(row->mapToScene({row->width() / 2, 20}));
  EXPECT_EQ(rows().rowCount(), count);
}

} // namespace
} // namespace tamberline
