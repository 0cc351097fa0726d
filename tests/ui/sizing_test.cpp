#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

#include <QScreen>

namespace tamberline {
namespace {

class PanelSizes : public PanelFixture {
protected:
  double wantedHeight() { return context().sizing()->windowTotalHeight(); }

  double greatestHeight() { return window().screen()->availableGeometry().height() - 40.0; }
};

TEST_F(PanelSizes, FollowTheContent) {
  useSample("road");
  openPanel();
  EXPECT_EQ(window().width(), 400);
  EXPECT_NEAR(window().height(), wantedHeight(), 1);
  const int closedHeight = window().height();
  expandAll();
  EXPECT_NEAR(window().height(), wantedHeight(), 1);
  EXPECT_GT(window().height(), closedHeight);
  EXPECT_EQ(window().width(), 400);
  collapseAll();
  EXPECT_EQ(window().height(), closedHeight);
}

TEST_F(PanelSizes, ShowTheWholeListWithoutScrolling) {
  useSample("road");
  openPanel();
  expandAll();
  ASSERT_LT(window().height(), greatestHeight());
  EXPECT_TRUE(isInView(*rowItem(0)));
  EXPECT_TRUE(isInView(*rowItem(rows().rowCount() - 1)));
  EXPECT_NEAR(listView()->parentItem()->height(), listView()->property("fullHeight").toDouble(), 1);
}

TEST_F(PanelSizes, StayWithinTheScreenAndScroll) {
  answerWithPorts(*machine, 30);
  openPanel();
  EXPECT_EQ(rows().rowCount(), 30);
  EXPECT_NEAR(window().height(), greatestHeight(), 1);
  EXPECT_EQ(window().width(), 400);
  EXPECT_TRUE(isInView(*rowItem(0)));
  QMetaObject::invokeMethod(listView(), "positionViewAtEnd");
  settle();
  ASSERT_NE(rowItem(29), nullptr);
  EXPECT_TRUE(isInView(*rowItem(29)));
  EXPECT_EQ(rowItem(0), nullptr);
}

TEST_F(PanelSizes, DoNotFollowRounding) {
  useSample("road");
  openPanel();
  const int height = window().height();
  const QObject part;
  const double fraction = wantedHeight() - height;
  context().sizing()->measure(PanelSizing::Channel::chrome, &part, 0.5 - fraction);
  settle();
  EXPECT_EQ(window().height(), height);
  context().sizing()->measure(PanelSizing::Channel::chrome, &part, 3 - fraction);
  settle();
  EXPECT_EQ(window().height(), height + 3);
}

TEST_F(PanelSizes, KeepTheSameSpacingAroundTheSearchWithSuggestionsAndWithout) {
  useSample("road");
  openPanel();
  const QRectF header = placeInWindow(*find(QAccessible::Button, "Expand all").item());
  EXPECT_EQ(header.top(), 8);
  const QQuickItem& field = drawnItem(*window().rootObject(), "SearchField");
  const QQuickItem& box = *field.childItems().constFirst();
  const QRectF place = placeInWindow(box);
  EXPECT_EQ(place.top(), header.bottom() + 8);
  EXPECT_EQ(place.left(), 8);
  EXPECT_EQ(place.right(), window().width() - 8);
  EXPECT_EQ(placeInWindow(field).bottom(), place.bottom() + 8);
  typeText("e");
  EXPECT_EQ(placeInWindow(box), place);
  const QRectF list = placeInWindow(*find(QAccessible::List, "Suggestions").item());
  EXPECT_EQ(list.top(), place.bottom() + 8);
  EXPECT_EQ(list.left(), 8);
  EXPECT_EQ(list.right(), window().width() - 8);
  EXPECT_EQ(placeInWindow(*listView()->parentItem()).top(), list.bottom() + 8 + 1); // a divider
}

TEST_F(PanelSizes, KeepSpacingAroundTheFooter) {
  answerWithPorts(*machine, 4);
  openPanel();
  const QRectF manual = placeInWindow(*find(QAccessible::Button, "Open the user manual").item());
  const QRectF quit = placeInWindow(*find(QAccessible::Button, "Quit").item());
  EXPECT_EQ(manual.left(), 8);
  EXPECT_EQ(quit.right(), window().width() - 14);
  EXPECT_EQ(manual.top(), placeInWindow(*listView()->parentItem()).bottom() + 1 + 8);
  EXPECT_EQ(manual.bottom(), window().height() - 8);
}

TEST_F(PanelSizes, StayTheSameWhileSearching) {
  useSample("desk");
  openPanel();
  const int height = window().height();
  const double listHeight = listView()->parentItem()->height();
  typeText("e");
  EXPECT_TRUE(isShown(QAccessible::List, "Suggestions"));
  EXPECT_EQ(window().height(), height);
  EXPECT_LT(listView()->parentItem()->height(), listHeight);
  typeKey(Qt::Key_Escape);
  EXPECT_EQ(window().height(), height);
  EXPECT_EQ(listView()->parentItem()->height(), listHeight);
}

TEST_F(PanelSizes, KeepTheFooterFreeWhileSearching) {
  useSample("bare");
  openPanel({.fontScale = 2});
  typeText("e");
  const QQuickItem* area = listView()->parentItem();
  const QQuickItem* quit = find(QAccessible::Button, "Quit").item();
  EXPECT_LE(area->mapToScene({0, area->height()}).y(), quit->mapToScene({0, 0}).y());
}

} // namespace
} // namespace tamberline
