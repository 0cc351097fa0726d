#include "acquisition/fetch_json.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class FetchJson : public testing::Test {
protected:
  static QCoro::Task<> store(QCoro::Task<FetchedReport> fetch,
                             std::shared_ptr<std::optional<FetchedReport>> result) {
    result->emplace(co_await fetch);
  }

  /// Destroys everything that is still waiting in the queue.
  void TearDown() override { queue->end(); }

  void start(Question section, AnswerDigest known = {}) {
    store(fetchJSON({machine, queue}, section, cancelRequest, std::move(known)), result);
  }

  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<CancelRequest> cancelRequest = std::make_shared<CancelRequest>();
  std::shared_ptr<std::optional<FetchedReport>> result =
      std::make_shared<std::optional<FetchedReport>>();
};

TEST_F(FetchJson, AsksForTheSection) {
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  start(Question::usb);
  queue->settle();
  EXPECT_EQ(machine->questions(), std::vector<Question>{Question::usb});
}

TEST_F(FetchJson, ReturnsTheWholeTopLevelObject) {
  machine->answer(Question::usb, R"({"SPUSBDataType": [], "other": 1})");
  start(Question::usb);
  queue->settle();
  ASSERT_TRUE(result->has_value());
  EXPECT_FALSE((*result)->error.has_value());
  EXPECT_EQ((*result)->content, nlohmann::json::parse(R"({"SPUSBDataType": [], "other": 1})"));
}

TEST_F(FetchJson, ReturnsAnObjectWithoutTheSectionAsItIs) {
  machine->answer(Question::usb, "{}");
  start(Question::usb);
  queue->settle();
  ASSERT_TRUE(result->has_value());
  EXPECT_FALSE((*result)->error.has_value());
}

TEST_F(FetchJson, DoesNotBlockTheMainThreadUntilTheAnswer) {
  machine->answer(Question::usb, "{}");
  start(Question::usb);
  EXPECT_EQ(queue->backgroundCount(), 1U);
  EXPECT_FALSE(result->has_value());
}

TEST_F(FetchJson, TriesAgainAfter150Milliseconds) {
  machine->answerOnce(Question::usb, "");
  machine->answer(Question::usb, R"({"second": true})");
  start(Question::usb);
  queue->advance(149ms);
  EXPECT_EQ(machine->askCount(Question::usb), 1U);
  EXPECT_FALSE(result->has_value());
  queue->advance(1ms);
  EXPECT_EQ(machine->askCount(Question::usb), 2U);
  ASSERT_TRUE(result->has_value());
  EXPECT_EQ((*result)->content, nlohmann::json::parse(R"({"second": true})"));
}

TEST_F(FetchJson, GivesUpAfterTwoAttemptsNamingTheSection) {
  for (const std::string output : {"", "no JSON", "[]", "7", "{\"SPUSBDataType\": ["}) {
    SCOPED_TRACE(output);
    result->reset();
    const std::size_t runsBefore = machine->askCount(Question::usb);
    machine->answer(Question::usb, output);
    start(Question::usb);
    queue->advance(10s);
    ASSERT_TRUE(result->has_value());
    ASSERT_TRUE((*result)->error.has_value());
    EXPECT_EQ((*result)->error->domain, "Tamberline");
    EXPECT_EQ((*result)->error->code, 1);
    EXPECT_EQ((*result)->error->description, "Could not parse SPUSBDataType");
    EXPECT_EQ(machine->askCount(Question::usb) - runsBefore, 2U);
  }
}

TEST_F(FetchJson, NamesEachSectionInItsError) {
  const struct {
    Question section;
    const char* description;
  } rows[] = {{Question::thunderbolt, "Could not parse SPThunderboltDataType"},
              {Question::usb, "Could not parse SPUSBDataType"},
              {Question::power, "Could not parse SPPowerDataType"}};
  for (const auto& row : rows) {
    result->reset();
    start(row.section);
    queue->advance(10s);
    ASSERT_TRUE(result->has_value());
    ASSERT_TRUE((*result)->error.has_value());
    EXPECT_EQ((*result)->error->description, row.description);
  }
}

TEST_F(FetchJson, DoesNotDecodeTheKnownAnswerAgain) {
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  start(Question::usb);
  queue->settle();
  ASSERT_TRUE(result->has_value());
  const AnswerDigest known = (*result)->answer.digest;
  result->reset();
  start(Question::usb, known);
  queue->settle();
  ASSERT_TRUE(result->has_value());
  EXPECT_FALSE((*result)->error.has_value());
  EXPECT_EQ((*result)->answer.digest, known);
  EXPECT_EQ((*result)->answer.text, R"({"SPUSBDataType": []})");
  EXPECT_TRUE((*result)->content.is_null());
}

TEST_F(FetchJson, DecodesAnAnswerThatDiffersFromTheKnownOne) {
  machine->answer(Question::usb, R"({"SPUSBDataType": [1]})");
  start(Question::usb, AnswerDigest(R"({"SPUSBDataType": [2]})"));
  queue->settle();
  ASSERT_TRUE(result->has_value());
  EXPECT_EQ((*result)->content, nlohmann::json::parse(R"({"SPUSBDataType": [1]})"));
}

TEST_F(FetchJson, AsksNothingOnceNobodyWantsTheResult) {
  start(Question::usb);
  cancelRequest->isCancelled = true;
  queue->advance(10s);
  ASSERT_TRUE(result->has_value());
  EXPECT_EQ(machine->askCount(Question::usb), 1U);
}

TEST_F(FetchJson, StartsNoSecondAttemptWhenCancelledBetweenTheTwo) {
  start(Question::usb);
  queue->advance(100ms);
  cancelRequest->isCancelled = true;
  queue->advance(10s);
  ASSERT_TRUE(result->has_value());
  EXPECT_TRUE((*result)->error.has_value());
  EXPECT_EQ(machine->askCount(Question::usb), 1U);
}

} // namespace
} // namespace tamberline
