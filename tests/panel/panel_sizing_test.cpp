#include "panel/panel_context.h"
#include "panel/panel_sizing.h"
#include "scanner/scanner_fixture.h"
#include "support/counted_signal.h"

#include <QObject>
#include <QQmlContext>
#include <QQmlEngine>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

using Channel = PanelSizing::Channel;

class PanelSizingTest : public testing::Test {
protected:
  void TearDown() override { queue->end(); }

  void measure(Channel channel, const QObject& source, double height) {
    sizing->measure(channel, &source, height);
    queue->runPosted();
  }

  void setSearching(bool isSearching) {
    sizing->setSearching(isSearching);
    queue->runPosted();
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::unique_ptr<PanelSizing> sizing = std::make_unique<PanelSizing>(queue);
  CountedSignal changes{sizing.get(), &PanelSizing::changed};
  const QObject header;
  const QObject footer;
  const QObject suggestions;
  const QObject cards;
  const QObject notice;
};

TEST_F(PanelSizingTest, AddsUpTheChrome) {
  measure(Channel::chrome, header, 40);
  measure(Channel::chrome, footer, 30);
  EXPECT_EQ(sizing->chromeHeight(), 70);
  EXPECT_EQ(sizing->chromeBaseline(), 70);
  EXPECT_EQ(sizing->listHeight(), 0);
  measure(Channel::chrome, header, 50);
  EXPECT_EQ(sizing->chromeHeight(), 80);
  measure(Channel::chrome, footer, 0);
  EXPECT_EQ(sizing->chromeHeight(), 50);
}

TEST_F(PanelSizingTest, TakesTheGreatestOfTheLists) {
  measure(Channel::list, cards, 400);
  measure(Channel::list, notice, 90);
  EXPECT_EQ(sizing->listHeight(), 400);
  EXPECT_EQ(sizing->chromeHeight(), 0);
  measure(Channel::list, cards, 0);
  EXPECT_EQ(sizing->listHeight(), 90);
}

TEST_F(PanelSizingTest, FollowsFromBoth) {
  measure(Channel::chrome, header, 130);
  measure(Channel::list, cards, 300);
  EXPECT_EQ(sizing->windowTotalHeight(), 432);
  EXPECT_EQ(sizing->listAreaHeight(), 300);
  EXPECT_EQ(sizing->maxSuggestionsHeight(), 240);
  EXPECT_EQ(sizing->maxListAreaHeight(), 1228);
}

TEST_F(PanelSizingTest, GivesTheListWhatIsLeftOfAWindowWhoseHeightIsGiven) {
  measure(Channel::chrome, header, 100);
  measure(Channel::list, cards, 400);
  sizing->setGivenHeight(300);
  EXPECT_EQ(changes.count(), 3);
  EXPECT_EQ(sizing->windowTotalHeight(), 502);
  EXPECT_EQ(sizing->listAreaHeight(), 198);
  EXPECT_EQ(sizing->maxSuggestionsHeight(), 138);
  sizing->setGivenHeight(300);
  EXPECT_EQ(changes.count(), 3);
  sizing->setGivenHeight(std::nullopt);
  EXPECT_EQ(sizing->listAreaHeight(), 400);
}

TEST_F(PanelSizingTest, KeepsTheWindowWhileSearching) {
  measure(Channel::chrome, header, 130);
  measure(Channel::list, cards, 300);
  setSearching(true);
  measure(Channel::chrome, suggestions, 100);
  EXPECT_TRUE(sizing->isSearching());
  EXPECT_EQ(sizing->chromeHeight(), 230);
  EXPECT_EQ(sizing->chromeBaseline(), 130);
  EXPECT_EQ(sizing->windowTotalHeight(), 432);
  EXPECT_EQ(sizing->listAreaHeight(), 200);
  measure(Channel::chrome, suggestions, 1000);
  EXPECT_EQ(sizing->windowTotalHeight(), 432);
  EXPECT_EQ(sizing->listAreaHeight(), 60);
}

TEST_F(PanelSizingTest, MeasuresTheChromeAnewAfterTheSearch) {
  measure(Channel::chrome, header, 130);
  setSearching(true);
  measure(Channel::chrome, header, 150);
  EXPECT_EQ(sizing->chromeBaseline(), 130);
  setSearching(false);
  EXPECT_EQ(sizing->chromeBaseline(), 150);
}

TEST_F(PanelSizingTest, TellsThatTheSearchBeganAndEnded) {
  sizing->setSearching(true);
  EXPECT_EQ(changes.count(), 1);
  sizing->setSearching(true);
  EXPECT_EQ(changes.count(), 1);
  sizing->setSearching(false);
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(PanelSizingTest, WaitsForTheNextTurn) {
  sizing->measure(Channel::list, &cards, 300);
  EXPECT_EQ(sizing->listHeight(), 0);
  EXPECT_EQ(changes.count(), 0);
  queue->runPosted();
  EXPECT_EQ(sizing->listHeight(), 300);
}

TEST_F(PanelSizingTest, ChangesOnceForSeveralMeasurements) {
  sizing->measure(Channel::chrome, &header, 40);
  sizing->measure(Channel::chrome, &footer, 30);
  sizing->measure(Channel::list, &cards, 300);
  sizing->measure(Channel::list, &cards, 310);
  queue->runPosted();
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(sizing->windowTotalHeight(), 382);
}

TEST_F(PanelSizingTest, SaysNothingWhenNothingChanged) {
  measure(Channel::list, cards, 300);
  measure(Channel::list, cards, 300);
  measure(Channel::list, notice, 200);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(PanelSizingTest, FitsTheScreenAtOnce) {
  measure(Channel::chrome, header, 130);
  measure(Channel::list, cards, 3000);
  EXPECT_EQ(sizing->windowTotalHeight(), 1360);
  const int before = changes.count();
  sizing->setScreenHeight(800);
  EXPECT_EQ(sizing->windowTotalHeight(), 760);
  EXPECT_EQ(sizing->maxListAreaHeight(), 628);
  EXPECT_EQ(changes.count(), before + 1);
  sizing->setScreenHeight(800);
  EXPECT_EQ(changes.count(), before + 1);
  sizing->setScreenHeight(std::nullopt);
  EXPECT_EQ(sizing->windowTotalHeight(), 1360);
}

TEST_F(PanelSizingTest, MayGoWhileAMeasurementWaits) {
  sizing->measure(Channel::list, &cards, 300);
  sizing.reset();
  queue->runPosted();
  EXPECT_EQ(changes.count(), 0);
}

/// Keys in an engine with a context, as in QML.
class HeightKeyTest : public ScannerFixture {
protected:
  void SetUp() override {
    ScannerFixture::SetUp();
    context =
        std::make_unique<PanelContext>(PanelContext::Outside{.scanner = scanner, .queue = queue});
    context->attachTo(engine);
  }

  template <typename Key>
  std::unique_ptr<Key> key(double height) {
    auto made = std::make_unique<Key>();
    QQmlEngine::setContextForObject(made.get(), engine.rootContext());
    made->setHeight(height);
    queue->runPosted();
    return made;
  }

  std::unique_ptr<PanelContext> context;
  QQmlEngine engine;
};

TEST_F(HeightKeyTest, MeasuresForItsChannelWhileItLives) {
  auto cards = key<ListHeightKey>(300);
  const auto notice = key<ListHeightKey>(200);
  const auto header = key<ChromeHeightKey>(40);
  auto footer = key<ChromeHeightKey>(30);
  EXPECT_EQ(context->sizing()->listHeight(), 300);
  EXPECT_EQ(context->sizing()->chromeHeight(), 70);
  cards.reset();
  footer.reset();
  queue->runPosted();
  EXPECT_EQ(context->sizing()->listHeight(), 200);
  EXPECT_EQ(context->sizing()->chromeHeight(), 40);
}

TEST_F(HeightKeyTest, TellsOnceThatItChanged) {
  const auto cards = key<ListHeightKey>(300);
  const CountedSignal changes(cards.get(), &HeightKey::heightChanged);
  cards->setHeight(300);
  EXPECT_EQ(changes.count(), 0);
  cards->setHeight(301);
  EXPECT_EQ(changes.count(), 1);
  EXPECT_EQ(cards->height(), 301);
}

TEST_F(HeightKeyTest, DoesWithoutAnEngine) {
  ListHeightKey lonely;
  lonely.setHeight(300);
  EXPECT_EQ(lonely.height(), 300);
}

} // namespace
} // namespace tamberline
