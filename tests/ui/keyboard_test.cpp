#include "support/event_loop.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

#include <QQmlProperty>

#include <set>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class PanelKeyboard : public PanelFixture {
protected:
  QQuickItem* focused() { return window().activeFocusItem(); }

  /// Whether anything in the panel shows that the item has keyboard focus.
  bool isFocusSeen(const QQuickItem* item) {
    if (item->inherits("QQuickTextInput")) {
      return QQmlProperty::read(item->parentItem(), "border.width").toInt() == 2;
    }
    for (const QQuickItem* ring : visibleItems(window())) {
      const bool isRing = QByteArray(ring->metaObject()->className()).startsWith("FocusRing_");
      if (isRing && ring->property("item").value<QQuickItem*>() == item) {
        return true;
      }
    }
    return false;
  }

  /// All items that Tab reaches before it starts over.
  std::set<const QQuickItem*> tabChain() {
    std::set<const QQuickItem*> chain;
    do {
      chain.insert(focused());
      EXPECT_TRUE(focused() != nullptr && isFocusSeen(focused()))
          << "nothing shows the keyboard at " << describeFocus();
      typeKey(Qt::Key_Tab);
    } while (!chain.contains(focused()));
    return chain;
  }

  std::string describeFocus() {
    return focused() == nullptr ? "nothing" : focused()->metaObject()->className();
  }

  /// The arrow keys reach a row once its list has focus.
  static bool isRow(const QQuickItem& item) { return item.property("sentence").isValid(); }

  void expectTabReachesEveryControl() {
    typeKey(Qt::Key_Tab);
    const std::set<const QQuickItem*> chain = tabChain();
    for (const AccessibleObject& object : objects()) {
      const bool isControl =
          object.role() == QAccessible::Button || object.role() == QAccessible::EditableText;
      if (isControl && object.item()->isEnabled() && !isRow(*object.item())) {
        EXPECT_TRUE(chain.contains(object.item())) << object.text().toStdString();
      }
      if (object.role() == QAccessible::List) {
        EXPECT_TRUE(std::any_of(chain.begin(), chain.end(), [&](const QQuickItem* item) {
          return isRow(*item) && object.item()->isAncestorOf(item);
        })) << object.text().toStdString();
      }
    }
  }

  void focusList() {
    listView()->forceActiveFocus();
    settle();
  }

  int currentRow() { return listView()->property("currentIndex").toInt(); }

  bool isCurrentOpen() {
    return rows().index(currentRow()).data(PanelListModel::ExpandedRole).toBool();
  }

  bool isFieldFocused() {
    return find(QAccessible::EditableText, "Search devices…").item()->hasActiveFocus();
  }

  std::string searchText() { return context().search()->searchText().toStdString(); }

  bool comesIntoView(int row) {
    return runEventsUntil([&] {
      draw();
      return rowItem(row) != nullptr && isInView(*rowItem(row));
    });
  }
};

TEST_F(PanelKeyboard, ReachesEveryControlWithTab) {
  answerWithDisk(*machine);
  openPanel();
  expandAll();
  expectTabReachesEveryControl();
}

TEST_F(PanelKeyboard, ReachesEveryControlWithTabWhileSearching) {
  answerWithDisk(*machine);
  openPanel();
  expandAll();
  typeText("q");
  expectTabReachesEveryControl();
}

TEST_F(PanelKeyboard, ReachesEveryControlWithTabWithoutCards) {
  openPanel();
  expectTabReachesEveryControl();
}

TEST_F(PanelKeyboard, SkipsDisabledButtons) {
  answerWithDisk(*machine);
  openPanel({.hasActions = false});
  expandAll();
  typeKey(Qt::Key_Tab);
  for (const QQuickItem* item : tabChain()) {
    EXPECT_TRUE(item->isEnabled());
  }
}

TEST_F(PanelKeyboard, PressesTheFocusedButton) {
  openPanel();
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    find(QAccessible::Button, "Quit").item()->forceActiveFocus();
    typeKey(key);
    find(QAccessible::Button, "Open the user manual").item()->forceActiveFocus();
    typeKey(key);
  }
  EXPECT_EQ(quitCount, 3);
  EXPECT_EQ(manualCount, 3);
}

TEST_F(PanelKeyboard, MovesInTheListWithTheArrows) {
  answerWithPorts(*machine, 3);
  openPanel();
  focusList();
  EXPECT_EQ(currentRow(), 0);
  typeKey(Qt::Key_Down);
  typeKey(Qt::Key_Down);
  EXPECT_EQ(currentRow(), 2);
  EXPECT_EQ(focused(), rowItem(2));
  typeKey(Qt::Key_Up);
  EXPECT_EQ(currentRow(), 1);
  EXPECT_TRUE(isFocusSeen(rowItem(1)));
  EXPECT_FALSE(isFocusSeen(rowItem(2)));
}

TEST_F(PanelKeyboard, OpensAndClosesTheCurrentRow) {
  answerWithPorts(*machine, 3);
  openPanel();
  focusList();
  typeKey(Qt::Key_Down);
  typeKey(Qt::Key_Right);
  EXPECT_TRUE(isCurrentOpen());
  typeKey(Qt::Key_Right);
  EXPECT_TRUE(isCurrentOpen());
  typeKey(Qt::Key_Left);
  EXPECT_FALSE(isCurrentOpen());
  for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    typeKey(key);
    EXPECT_TRUE(isCurrentOpen());
    typeKey(key);
    EXPECT_FALSE(isCurrentOpen());
  }
  EXPECT_EQ(currentRow(), 1);
  EXPECT_EQ(focused(), rowItem(1));
}

TEST_F(PanelKeyboard, StaysOnItsRowDuringARescan) {
  answerWithPorts(*machine, 3);
  openPanel();
  focusList();
  typeKey(Qt::Key_Down);
  answerWithPorts(*machine, 4);
  rescan();
  EXPECT_EQ(currentRow(), 1);
  EXPECT_EQ(focused(), rowItem(1));
}

TEST_F(PanelKeyboard, ScrollsToTheRowThatItMovesTo) {
  answerWithPorts(*machine, 30);
  openPanel();
  focusList();
  for (int i = 0; i < 29; ++i) {
    typeKey(Qt::Key_Down);
  }
  EXPECT_EQ(currentRow(), 29);
  EXPECT_TRUE(comesIntoView(29));
}

TEST_F(PanelKeyboard, ScrollsToARowHiddenBySuggestions) {
  useSample("desk");
  openPanel();
  typeText("lumen 27");
  ASSERT_FALSE(isInView(*rowItem(rows().rowCount() - 1)));
  focusList();
  EXPECT_TRUE(comesIntoView(0));
  for (int row = 1; row < rows().rowCount(); ++row) {
    typeKey(Qt::Key_Down);
    EXPECT_EQ(currentRow(), row);
    EXPECT_TRUE(comesIntoView(row)) << row;
  }
  for (int row = rows().rowCount() - 2; row >= 0; --row) {
    typeKey(Qt::Key_Up);
    EXPECT_EQ(currentRow(), row);
    EXPECT_TRUE(comesIntoView(row)) << row;
  }
}

TEST_F(PanelKeyboard, ScrollsToAButtonThatItComesTo) {
  useSample("desk");
  openPanel();
  expandAll();
  typeKey(Qt::Key_Tab);
  const QQuickItem* const first = focused();
  do {
    if (listView()->isAncestorOf(focused())) {
      EXPECT_TRUE(runEventsUntil([&] {
        draw();
        return isInView(*focused());
      })) << focused()->property("tooltip").toString().toStdString();
    }
    typeKey(Qt::Key_Tab);
  } while (focused() != first);
}

TEST_F(PanelKeyboard, TypesIntoTheSearchFieldFromAnywhere) {
  answerWithDisk(*machine);
  openPanel();
  typeText("q");
  EXPECT_TRUE(isFieldFocused());
  EXPECT_EQ(searchText(), "q");
  find(QAccessible::Button, "Quit").item()->forceActiveFocus();
  typeText("u");
  EXPECT_TRUE(isFieldFocused());
  focusList();
  typeText("a");
  EXPECT_EQ(searchText(), "qua");
  typeText(" r");
  EXPECT_EQ(searchText(), "qua r");
  EXPECT_EQ(quitCount, 0);
}

TEST_F(PanelKeyboard, GoesFromTheFieldToTheSuggestionsAndJumps) {
  useSample("desk");
  openPanel();
  typeText("lumen 27");
  typeKey(Qt::Key_Down);
  typeKey(Qt::Key_Down);
  ASSERT_TRUE(isRow(*focused()));
  EXPECT_TRUE(isFocusSeen(focused()));
  const QString name = focused()->property("name").toString();
  const QString first = context().search()->suggestions()->index(0, 0).data().toString();
  EXPECT_NE(name, first);
  typeKey(Qt::Key_Return);
  advance(30ms);
  EXPECT_EQ(searchText(), "");
  EXPECT_EQ(rows().rowAt(indexOfRowNamed(name))->pulse, Pulse::Throbbing);
}

TEST_F(PanelKeyboard, GoesFromTheEmptyFieldToTheList) {
  answerWithPorts(*machine, 3);
  openPanel();
  find(QAccessible::EditableText, "Search devices…").item()->forceActiveFocus();
  typeKey(Qt::Key_Down);
  EXPECT_EQ(focused(), rowItem(0));
}

TEST_F(PanelKeyboard, StaysInTheFieldWhenNothingWasFound) {
  openPanel();
  typeText("no such device");
  typeKey(Qt::Key_Down);
  EXPECT_TRUE(isFieldFocused());
}

TEST_F(PanelKeyboard, KeepsFocusAfterAJump) {
  useSample("desk");
  openPanel();
  typeText("lumen 27");
  typeKey(Qt::Key_Down);
  typeKey(Qt::Key_Return);
  advance(180ms);
  ASSERT_NE(focused(), nullptr);
  EXPECT_TRUE(focused()->isVisible());
  EXPECT_TRUE(isFocusSeen(focused()));
}

TEST_F(PanelKeyboard, ClosesTheLatestFirstWithEscape) {
  answerWithDisk(*machine);
  openPanel();
  expandAll();
  typeText("quarry");
  press("Why isn't this at full speed?");
  ASSERT_NE(context().popover()->target(), nullptr);
  typeKey(Qt::Key_Escape);
  EXPECT_EQ(context().popover()->target(), nullptr);
  EXPECT_EQ(searchText(), "quarry");
  typeKey(Qt::Key_Escape);
  EXPECT_EQ(searchText(), "");
  EXPECT_EQ(closeCount, 0);
  typeKey(Qt::Key_Escape);
  EXPECT_EQ(closeCount, 1);
}

TEST_F(PanelKeyboard, FindsWithTheUsualKeys) {
  answerWithDisk(*machine);
  openPanel();
  focusList();
  typeKey(Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(isFieldFocused());
  EXPECT_EQ(searchText(), "");
}

TEST_F(PanelKeyboard, ClosesAndQuitsWithTheUsualKeys) {
  openPanel();
  typeKey(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(closeCount, 1);
  EXPECT_EQ(quitCount, 0);
  typeKey(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(closeCount, 1);
  EXPECT_EQ(quitCount, 1);
}

TEST_F(PanelKeyboard, ClosesWithTheUsualKeysWhileSearching) {
  answerWithDisk(*machine);
  openPanel();
  typeText("q");
  ASSERT_TRUE(isFieldFocused());
  typeKey(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(closeCount, 1);
  EXPECT_EQ(searchText(), "q");
}

} // namespace
} // namespace tamberline
