#include "controls/scroll_proxy.h"
#include "panel/search_controller.h"
#include "scanner/scanner_fixture.h"
#include "support/hand_driven_animations.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

/// A list of fifty rows of 20 points, of which 100 points are visible.
class ScrollProxyTest : public ScannerFixture {
protected:
  void SetUp() override {
    ScannerFixture::SetUp();
    QQmlComponent component(&engine);
    component.setData("import QtQuick\n"
                      "ListView { width: 100; height: 300; model: 50; bottomMargin: 200\n"
                      "  delegate: Item { width: 100; height: 20 } }",
                      {});
    list.reset(qobject_cast<QQuickItem*>(component.create()));
    ASSERT_NE(list, nullptr) << component.errorString().toStdString();
    proxy.setProperty("list", QVariant::fromValue(list.get()));
    proxy.setProperty("visibleHeight", 100);
  }

  double position() const { return list->property("contentY").toDouble(); }
  /// The position after the animation.
  double positionInTheEnd() {
    animations.advanceBy(250ms);
    return position();
  }

  HandDrivenAnimations animations;
  QQmlEngine engine;
  std::unique_ptr<QQuickItem> list;
  ScrollProxy proxy;
};

TEST_F(ScrollProxyTest, BringsARowToTheMiddleOfWhatIsSeen) {
  proxy.centre(10);
  EXPECT_EQ(position(), 0) << "smoothly";
  animations.advanceBy(125ms);
  EXPECT_EQ(position(), 80);
  EXPECT_EQ(positionInTheEnd(), 160);
}

TEST_F(ScrollProxyTest, StopsAtTheEnds) {
  proxy.centre(49);
  EXPECT_EQ(positionInTheEnd(), 900);
  proxy.centre(1);
  EXPECT_EQ(positionInTheEnd(), 0);
}

TEST_F(ScrollProxyTest, ComesToARowThatIsNotDrawnFromTheSideOnWhichItWas) {
  proxy.centre(40);
  EXPECT_EQ(position(), 660);
  EXPECT_EQ(positionInTheEnd(), 760);
  proxy.centre(10);
  EXPECT_EQ(position(), 260);
  EXPECT_EQ(positionInTheEnd(), 160);
}

TEST_F(ScrollProxyTest, GoesToAnotherRowFromWhereItIs) {
  proxy.centre(10);
  animations.advanceBy(125ms);
  proxy.centre(12);
  EXPECT_EQ(position(), 80);
  EXPECT_EQ(positionInTheEnd(), 200);
}

TEST_F(ScrollProxyTest, StaysWhereSomebodyScrolledByHand) {
  proxy.centre(10);
  animations.advanceBy(125ms);
  proxy.stop();
  EXPECT_EQ(positionInTheEnd(), 80);
}

TEST_F(ScrollProxyTest, StaysWithinAListThatBecomesShorterOnTheWay) {
  proxy.centre(14);
  animations.advanceBy(125ms);
  list->setProperty("model", 8);
  animations.advanceBy(100ms);
  EXPECT_EQ(position(), 60);
}

TEST_F(ScrollProxyTest, DoesNothingWithoutAList) {
  ScrollProxy lonely;
  lonely.centre(3);
  EXPECT_EQ(position(), 0);
}

TEST_F(ScrollProxyTest, IsWhatASearchScrollsWith) {
  answerWithOnePort();
  machine->answer(Question::usb, R"({"SPUSBDataType": [{"_name": "USB31Bus",
      "_items": [{"_name": "Keys"}]}]})");
  scan();
  SearchController search(scanner, queue, [](const std::string&) { return 20; });
  search.setScrollProxy(&proxy);
  EXPECT_EQ(search.scrollProxy(), &proxy);
  search.setSearchText("keys");
  search.jumpToFirst();
  queue->advance(180ms);
  EXPECT_EQ(positionInTheEnd(), 360);
}

} // namespace
} // namespace tamberline
