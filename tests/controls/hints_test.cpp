#include "controls/hints.h"
#include "support/counted_signal.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class HintsTest : public testing::Test {
protected:
  void TearDown() override { queue->end(); }

  void restOn(QQuickItem* target, const QString& text) {
    hints->setHovered(target, text, true);
    queue->advance(600ms);
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::unique_ptr<Hints> hints = std::make_unique<Hints>(queue);
  std::unique_ptr<QQuickItem> item = std::make_unique<QQuickItem>();
  QQuickItem other;
};

TEST_F(HintsTest, ComeWhenThePointerHasRested) {
  hints->setHovered(item.get(), "Quit", true);
  queue->advance(599ms);
  EXPECT_EQ(hints->target(), nullptr);
  queue->advance(1ms);
  EXPECT_EQ(hints->target(), item.get());
  EXPECT_EQ(hints->text(), "Quit");
}

TEST_F(HintsTest, GoWithThePointer) {
  restOn(item.get(), "Quit");
  hints->setHovered(item.get(), "Quit", false);
  EXPECT_EQ(hints->target(), nullptr);
}

TEST_F(HintsTest, DoNotComeWhenThePointerLeftEarlier) {
  hints->setHovered(item.get(), "Quit", true);
  queue->advance(300ms);
  hints->setHovered(item.get(), "Quit", false);
  EXPECT_EQ(queue->delayedCount(), 0U);
  queue->advance(1s);
  EXPECT_EQ(hints->target(), nullptr);
}

TEST_F(HintsTest, BelongToTheItemThatThePointerReachedLast) {
  restOn(item.get(), "Quit");
  hints->setHovered(&other, "Scan", true);
  EXPECT_EQ(hints->target(), nullptr);
  hints->setHovered(item.get(), "Quit", false);
  queue->advance(600ms);
  EXPECT_EQ(hints->target(), &other);
  EXPECT_EQ(hints->text(), "Scan");
}

TEST_F(HintsTest, SayNothingWithoutAText) {
  restOn(item.get(), "");
  EXPECT_EQ(hints->target(), nullptr);
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(HintsTest, GoWhenTheTextIsGone) {
  restOn(item.get(), "Quit");
  hints->setHovered(item.get(), "", true);
  EXPECT_EQ(hints->target(), nullptr);
}

TEST_F(HintsTest, GoWhenHiddenAndTellSo) {
  restOn(item.get(), "Quit");
  const CountedSignal changes(hints.get(), &Hints::changed);
  hints->hide();
  EXPECT_EQ(hints->target(), nullptr);
  EXPECT_EQ(changes.count(), 1);
  hints->hide();
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(HintsTest, DoNotComeAfterTheyWereHidden) {
  hints->setHovered(item.get(), "Quit", true);
  hints->hide();
  queue->advance(1s);
  EXPECT_EQ(hints->target(), nullptr);
}

TEST_F(HintsTest, DoNotComeForAnItemThatIsGone) {
  hints->setHovered(item.get(), "Quit", true);
  item.reset();
  const CountedSignal changes(hints.get(), &Hints::changed);
  queue->advance(1s);
  EXPECT_EQ(hints->target(), nullptr);
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(HintsTest, GoWithTheirItemAndTellSo) {
  restOn(item.get(), "Quit");
  const CountedSignal changes(hints.get(), &Hints::changed);
  item.reset();
  EXPECT_EQ(hints->target(), nullptr);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(HintsTest, GoWhenTheirItemIsNoLongerSeen) {
  restOn(item.get(), "Quit");
  item->setVisible(false);
  EXPECT_EQ(hints->target(), nullptr);
}

TEST_F(HintsTest, ForgetAnItemThatTheyLeft) {
  restOn(item.get(), "Quit");
  restOn(&other, "Scan");
  item->setVisible(false);
  item.reset();
  EXPECT_EQ(hints->target(), &other);
}

TEST_F(HintsTest, MayEndWhileOneIsComing) {
  hints->setHovered(item.get(), "Quit", true);
  hints.reset();
  EXPECT_EQ(queue->delayedCount(), 0U);
}

} // namespace
} // namespace tamberline
