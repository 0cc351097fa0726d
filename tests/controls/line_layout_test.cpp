#include "controls/line_layout.h"

#include <QQmlEngine>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

// Registers the types of the QML module; attached objects are found by them.
extern void qml_register_types_Tamberline_Controls();

namespace tamberline {
namespace {

struct Child {
  double width = 0;
  double height = 10;
  bool isElastic = false;
  bool isTrailing = false;
  bool isPinned = false;
  bool isVisible = true;
  bool isLeading = false;
  bool isSeparator = false;
};

LineAttached& attachedTo(QQuickItem& child) {
  return *qobject_cast<LineAttached*>(qmlAttachedPropertiesObject<LineLayout>(&child));
}

/// A layout with gaps of 5 points between its children and 2 between its lines.
class LineLayoutTest : public testing::Test {
protected:
  LineLayoutTest() {
    qml_register_types_Tamberline_Controls();
    layout.setProperty("spacing", 5);
    layout.setProperty("lineSpacing", 2);
    layout.setProperty("minElasticWidth", 20);
  }

  void fill(double width, std::initializer_list<Child> wanted) {
    children.clear();
    layout.setWidth(width);
    for (const Child& child : wanted) {
      add(child);
    }
  }

  void add(const Child& wanted) {
    auto& item = *children.emplace_back(std::make_unique<QQuickItem>());
    item.setImplicitWidth(wanted.width);
    item.setImplicitHeight(wanted.height);
    item.setVisible(wanted.isVisible);
    LineAttached& attached = attachedTo(item);
    attached.isElastic = wanted.isElastic;
    attached.isTrailing = wanted.isTrailing;
    attached.isPinned = wanted.isPinned;
    attached.isLeading = wanted.isLeading;
    attached.isSeparator = wanted.isSeparator;
    item.setParentItem(&layout);
  }

  /// "x,y width" of each visible child.
  std::string geometry() const {
    std::string text;
    for (const auto& item : children) {
      if (item->isVisible()) {
        text += text.empty() ? "" : " | ";
        text += number(item->x()) + "," + number(item->y()) + " " + number(item->width());
      }
    }
    return text;
  }

  static std::string number(double value) { return QString::number(value).toStdString(); }

  LineLayout layout;
  std::vector<std::unique_ptr<QQuickItem>> children; // destroyed after the layout
};

TEST_F(LineLayoutTest, PlacesItsChildren) {
  const struct {
    const char* description;
    double width;
    std::vector<Child> children;
    const char* geometry;
    double height;
  } rows[] = {
      {"nothing", 100, {}, "", 0},
      {"one line", 100, {{30}, {40}}, "0,0 30 | 35,0 40", 10},
      {"a line that just fits", 75, {{30}, {40}}, "0,0 30 | 35,0 40", 10},
      {"a line that does not fit", 74, {{30}, {40}}, "0,0 30 | 0,12 40", 22},
      {"three lines", 50, {{30}, {40}, {50}}, "0,0 30 | 0,12 40 | 0,24 50", 34},
      {"centred vertically", 100, {{30, 10}, {30, 20}, {20, 4}}, "0,5 30 | 35,0 30 | 70,8 20", 20},
      {"lines as high as what they hold",
       50,
       {{30, 10}, {40, 20}, {5, 4}},
       "0,0 30 | 0,12 40 | 45,20 5",
       32},
      {"whole points", 100, {{30.2}, {40}}, "0,0 31 | 36,0 40", 10},
      {"trailing", 100, {{30}, {40, 10, false, true}}, "0,0 30 | 60,0 40", 10},
      {"everything after a trailing one",
       100,
       {{30}, {10, 10, false, true}, {20}},
       "0,0 30 | 65,0 10 | 80,0 20",
       10},
      {"trailing at the left of the line that it wraps to",
       60,
       {{30}, {40, 10, false, true}},
       "0,0 30 | 0,12 40",
       22},
      {"a trailing group that wraps together",
       70,
       {{30}, {20, 10, false, true}, {20}},
       "0,0 30 | 0,12 20 | 25,12 20",
       22},
      {"a trailing group that is wider than a line",
       50,
       {{30}, {30, 10, false, true}, {30}},
       "0,0 30 | 0,12 30 | 0,24 30",
       34},
      {"trailing beside what wraps before it",
       50,
       {{30}, {25}, {20, 10, false, true}},
       "0,0 30 | 0,12 25 | 30,12 20",
       22},
      {"trailing below what wraps before it",
       50,
       {{30}, {25}, {21, 10, false, true}},
       "0,0 30 | 0,12 25 | 0,24 21",
       34},
      {"elastic with room", 100, {{30, 10, true}, {40}}, "0,0 30 | 35,0 40", 10},
      {"elastic without room", 70, {{60, 10, true}, {40}}, "0,0 25 | 30,0 40", 10},
      {"elastic at its least", 65, {{60, 10, true}, {40}}, "0,0 20 | 25,0 40", 10},
      {"elastic below its least", 64, {{60, 10, true}, {40}}, "0,0 60 | 0,12 40", 22},
      {"a short elastic one does not wrap", 57, {{12, 10, true}, {40}}, "0,0 12 | 17,0 40", 10},
      {"two elastic ones", 100, {{50, 10, true}, {80, 10, true}}, "0,0 50 | 55,0 45", 10},
      {"wider than everything", 40, {{90}}, "0,0 40", 10},
      {"elastic and wider than everything", 15, {{90, 10, true}}, "0,0 15", 10},
      {"invisible ones",
       100,
       {{30}, {50, 10, false, false, false, false}, {40}},
       "0,0 30 | 35,0 40",
       10},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    children.clear();
    layout.setWidth(row.width);
    for (const Child& child : row.children) {
      add(child);
    }
    EXPECT_EQ(geometry(), row.geometry);
    EXPECT_EQ(layout.implicitHeight(), row.height);
  }
}

TEST_F(LineLayoutTest, StandsChildrenOnOneBaseline) {
  layout.setProperty("alignsBaselines", true);
  fill(100, {{30, 15}, {20, 12}, {10, 6}});
  children[0]->setBaselineOffset(12);
  children[1]->setBaselineOffset(10);
  EXPECT_EQ(geometry(), "0,0 30 | 35,2 20 | 60,5 10"); // the last is centred on the first
  EXPECT_EQ(layout.implicitHeight(), 15);
  EXPECT_EQ(layout.baselineOffset(), 12);
  children[2]->setImplicitHeight(31);
  EXPECT_EQ(geometry(), "0,8 30 | 35,10 20 | 60,0 10");
  EXPECT_EQ(layout.implicitHeight(), 31);
  EXPECT_EQ(layout.baselineOffset(), 20);
}

TEST_F(LineLayoutTest, StandsLettersOnWholePoints) {
  layout.setProperty("alignsBaselines", true);
  fill(100, {{30, 15}, {20, 12}, {10, 6}});
  children[0]->setBaselineOffset(12.25);
  children[1]->setBaselineOffset(10.5);
  EXPECT_EQ(geometry(), "0,0.75 30 | 35,2.5 20 | 60,5 10");
  EXPECT_EQ(layout.baselineOffset(), 13);
  EXPECT_EQ(layout.implicitHeight(), 16);
}

TEST_F(LineLayoutTest, HasTheBaselineOfItsFirstLine) {
  layout.setProperty("alignsBaselines", true);
  fill(50, {{30, 15}, {40, 12}});
  children[0]->setBaselineOffset(12);
  children[1]->setBaselineOffset(11);
  EXPECT_EQ(geometry(), "0,0 30 | 0,17 40");
  EXPECT_EQ(layout.baselineOffset(), 12);
}

TEST_F(LineLayoutTest, CentresChildrenOfWhichNoneHasABaseline) {
  layout.setProperty("alignsBaselines", true);
  fill(100, {{30, 10}, {30, 20}});
  EXPECT_EQ(geometry(), "0,5 30 | 35,0 30");
  EXPECT_EQ(layout.implicitHeight(), 20);
}

/// 20 points before the text, of which 6 are a gap, and 12 after it.
TEST_F(LineLayoutTest, LeavesRoomForTheColumnsBesideTheText) {
  layout.setProperty("indent", 20);
  layout.setProperty("pinnedWidth", 12);
  const Child leading{.width = 8, .isLeading = true};
  const Child pinned{.width = 10, .isPinned = true};
  const struct {
    const char* description;
    double width;
    std::vector<Child> children;
    const char* geometry;
    double height;
  } rows[] = {
      {"only text", 132, {{30}, {40, 10, false, true}}, "20,0 30 | 80,0 40", 10},
      {"in the middle of their columns",
       132,
       {leading, {30}, {40, 10, false, true}, pinned},
       "3,0 8 | 20,0 30 | 80,0 40 | 121,0 10",
       10},
      {"every line at the edge of the text",
       92,
       {leading, {30}, {40, 10, false, true}, pinned},
       "3,0 8 | 20,0 30 | 20,12 40 | 81,6 10",
       22},
      {"text limited to its room", 62, {leading, {90}, pinned}, "3,0 8 | 20,0 30 | 51,0 10", 10},
      {"leading on the first line",
       92,
       {{30}, {50, 20}, leading},
       "20,0 30 | 20,12 50 | 3,0 8",
       32},
      {"a high leading one",
       92,
       {{.width = 8, .height = 20, .isLeading = true}, {30}},
       "3,0 8 | 20,5 30",
       20},
      {"a wide leading one", 92, {{.width = 30, .isLeading = true}, {30}}, "0,0 30 | 20,0 30", 10},
      {"leading alone", 92, {leading}, "3,0 8", 10},
      {"pinned alone", 92, {pinned}, "81,-5 10", 0},
      {"no room", 30, {leading, {30}}, "3,0 8 | 20,0 0", 10},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    children.clear();
    layout.setWidth(row.width);
    for (const Child& child : row.children) {
      add(child);
    }
    EXPECT_EQ(geometry(), row.geometry);
    EXPECT_EQ(layout.implicitHeight(), row.height);
  }
}

TEST_F(LineLayoutTest, ShowsSeparatorsOnlyBetweenTexts) {
  const Child separator{.width = 4, .isSeparator = true};
  const auto shown = [this] { return children[1]->opacity() > 0; };
  fill(100, {{30}, separator, {40}});
  EXPECT_EQ(geometry(), "0,0 30 | 35,0 4 | 44,0 40");
  EXPECT_TRUE(shown());
  layout.setWidth(50);
  EXPECT_FALSE(shown()) << "at the end of a line";
  EXPECT_EQ(children[2]->position(), QPointF(0, 12));
  layout.setWidth(38);
  EXPECT_FALSE(shown()) << "alone on a line";
  EXPECT_EQ(children[2]->x(), 0);
  layout.setWidth(100);
  EXPECT_TRUE(shown());
  children[2]->setVisible(false);
  EXPECT_FALSE(shown()) << "at the end of the only line";
}

TEST_F(LineLayoutTest, PlacesTrailingFiguresBelowThoseWithSeparators) {
  fill(60, {{30}, {.width = 4, .isSeparator = true}, {40}, {.width = 12, .isTrailing = true}});
  EXPECT_EQ(children[2]->position(), QPointF(0, 12));
  EXPECT_EQ(children[3]->position(), QPointF(0, 24));
}

TEST_F(LineLayoutTest, WantsToBeAsWideAsOneLine) {
  fill(50, {{30}, {40, 10, true}});
  EXPECT_EQ(layout.implicitWidth(), 75);
  layout.setProperty("indent", 20);
  layout.setProperty("pinnedWidth", 12);
  EXPECT_EQ(layout.implicitWidth(), 107);
}

TEST_F(LineLayoutTest, FollowsItsWidth) {
  fill(100, {{30}, {40}});
  layout.setWidth(50);
  EXPECT_EQ(geometry(), "0,0 30 | 0,12 40");
}

TEST_F(LineLayoutTest, FollowsItsChildren) {
  fill(100, {{30}, {40}});
  children[0]->setImplicitWidth(50);
  EXPECT_EQ(geometry(), "0,0 50 | 55,0 40");
  children[1]->setImplicitHeight(20);
  EXPECT_EQ(geometry(), "0,5 50 | 55,0 40");
  children[0]->setVisible(false);
  EXPECT_EQ(geometry(), "0,0 40");
  children[0]->setVisible(true);
  EXPECT_EQ(geometry(), "0,5 50 | 55,0 40");
  children.erase(children.begin());
  EXPECT_EQ(geometry(), "0,0 40");
}

TEST_F(LineLayoutTest, FollowsItsSpacing) {
  fill(100, {{30}, {40}});
  layout.setProperty("spacing", 9);
  EXPECT_EQ(geometry(), "0,0 30 | 39,0 40");
}

TEST_F(LineLayoutTest, FollowsWhatItsChildrenWantToBe) {
  fill(100, {{30}, {40}});
  attachedTo(*children[1]).setProperty("isTrailing", true);
  EXPECT_EQ(geometry(), "0,0 30 | 60,0 40");
}

TEST_F(LineLayoutTest, LeavesAChildAloneThatLeftIt) {
  fill(100, {{30}, {40}});
  QQuickItem elsewhere;
  children[1]->setParentItem(&elsewhere);
  children[1]->setPosition({77, 7});
  children[1]->setImplicitWidth(50);
  EXPECT_EQ(children[1]->position(), QPointF(77, 7));
}

} // namespace
} // namespace tamberline
