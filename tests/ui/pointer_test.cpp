// What the panel shows of the pointer, and what can be pressed and dragged with it.
#include "controls/popup.h"
#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

#include <QMouseEvent>

namespace tamberline {
namespace {

class PanelPointer : public PanelFixture {
protected:
  QPointF centreOf(const QQuickItem& item) { return placeInWindow(item).center(); }

  QColor colorAt(QPointF position) { return window().grabWindow().pixelColor(position.toPoint()); }

  void send(QEvent::Type type, QPointF position, Qt::MouseButtons buttons) {
    QMouseEvent event(type, position, window().mapToGlobal(position),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&window(), &event);
    settle();
  }
};

TEST_F(PanelPointer, DarkensTheRowThatItCanPress) {
  useSample("desk");
  openPanel();
  const QRectF header = placeInWindow(*rowItem(indexOfRowNamed("Thunderbolt Port 1")));
  const QPointF empty(header.left() + 25, header.top() + 12);
  const QColor before = colorAt(empty);
  movePointer(header.center());
  const QColor under = colorAt(empty);
  EXPECT_LT(under.lightness(), before.lightness());
  EXPECT_GT(under.lightness(), before.lightness() - 20);
  send(QEvent::MouseButtonPress, header.center(), Qt::LeftButton);
  EXPECT_LT(colorAt(empty).lightness(), under.lightness());
  send(QEvent::MouseButtonRelease, header.center(), Qt::NoButton);
  movePointer({5, 5});
  EXPECT_EQ(colorAt(empty), before);
}

TEST_F(PanelPointer, LeavesRowsAloneThatItCannotPress) {
  useSample("desk");
  openPanel();
  const QRectF header = placeInWindow(*rowItem(0)); // the adapter's
  const QPointF empty(header.left() + 25, header.top() + 12);
  const QColor before = colorAt(empty);
  movePointer(header.center());
  EXPECT_EQ(colorAt(empty), before);
}

/// Small symbols are hard to hit.
TEST_F(PanelPointer, PressesButtonsBesideTheirSymbols) {
  answerWithDisk(*machine);
  openPanel();
  expandAll();
  const QPointF eject = centreOf(*find(QAccessible::Button, "Eject this drive").item());
  for (const QPointF& offset : {QPointF(11, 0), QPointF(-11, 0), QPointF(0, 11), QPointF(0, -11)}) {
    ejectedVolumes.clear();
    click(eject + offset);
    EXPECT_EQ(ejectedVolumes, std::vector<std::string>{"/Volumes/Data"});
  }
  ejectedVolumes.clear();
  click(eject + QPointF(0, 14));
  EXPECT_TRUE(ejectedVolumes.empty());
}

TEST_F(PanelPointer, DragsTheScrollbar) {
  answerWithPorts(*machine, 30);
  openPanel();
  const QRectF bar = placeInWindow(drawnItem(*window().rootObject(), "Scrollbar"));
  const double start = listPosition();
  const QPointF grip(bar.center().x(), bar.top() + 10);
  send(QEvent::MouseButtonPress, grip, Qt::LeftButton);
  EXPECT_EQ(listPosition(), start);
  send(QEvent::MouseMove, grip + QPointF(0, 50), Qt::LeftButton);
  const double middle = listPosition();
  EXPECT_GT(middle, start + 50);
  send(QEvent::MouseMove, grip + QPointF(0, 5000), Qt::LeftButton);
  const double end = listPosition();
  EXPECT_GT(end, middle);
  EXPECT_TRUE(isInView(*rowItem(29)));
  send(QEvent::MouseMove, grip - QPointF(0, 5000), Qt::LeftButton);
  EXPECT_EQ(listPosition(), start);
  send(QEvent::MouseButtonRelease, grip, Qt::NoButton);
  send(QEvent::MouseMove, grip + QPointF(0, 50), Qt::NoButton);
  EXPECT_EQ(listPosition(), start) << "no longer held";
}

TEST_F(PanelPointer, FindsTheExplanationBeyondTheBarThatItIsAbout) {
  answerWithDisk(*machine);
  openPanel({.isBoundByScreen = false});
  expandAll();
  press("Why isn't this at full speed?");
  const QQuickItem& row = *rowItem(indexOfRowNamed("Quarry SSD"));
  const QRectF speedBar = placeInWindow(*drawnItems(row, "TriBar").front());
  for (const QQuickItem* item : visibleItems(window())) {
    if (qobject_cast<const Popup*>(item) != nullptr) {
      EXPECT_FALSE(placeInWindow(*item).intersects(speedBar));
    }
  }
}

/// In the order in which they are seen, whichever was created first.
TEST_F(PanelPointer, IsNotNeededToHearRowsInTheirOrder) {
  useSample("desk");
  openPanel({.isBoundByScreen = false});
  context().panel()->toggle(indexOfRowNamed("Thunderbolt Port 2"));
  settle();
  context().panel()->toggle(indexOfRowNamed("Thunderbolt Port 1"));
  settle();
  double last = 0;
  int rowsHeard = 0;
  for (const AccessibleObject& object : objects()) {
    const QQuickItem* item = object.item();
    if (item != nullptr && item->parentItem() != nullptr &&
        item->parentItem()->parentItem() == listView()) {
      EXPECT_GT(placeInWindow(*item).top(), last) << object.name().toStdString();
      last = placeInWindow(*item).top();
      ++rowsHeard;
    }
  }
  EXPECT_EQ(rowsHeard, rows().rowCount());
}

} // namespace
} // namespace tamberline
