#include "acquisition/fetch_json.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

#include <optional>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class FetchJson : public testing::Test {
protected:
  static QCoro::Task<> store(QCoro::Task<FetchedReport> fetch,
                             std::shared_ptr<std::optional<FetchedReport>> result) {
    result->emplace(co_await fetch);
  }

  /// What still waits in the queue goes with it.
  void TearDown() override { queue->end(); }

  void start(const std::string& type) {
    store(fetchJSON({tools, queue}, type, cancelRequest), result);
  }

  std::shared_ptr<FakeTools> tools = std::make_shared<FakeTools>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<CancelRequest> cancelRequest = std::make_shared<CancelRequest>();
  std::shared_ptr<std::optional<FetchedReport>> result =
      std::make_shared<std::optional<FetchedReport>>();
};

TEST_F(FetchJson, RunsTheReportToolForTheSectionWithJsonOutput) {
  tools->answer("SPUSBDataType.json", R"({"SPUSBDataType": []})");
  start("SPUSBDataType");
  queue->settle();
  EXPECT_EQ(tools->commandLines(),
            std::vector<std::string>{"/usr/sbin/system_profiler SPUSBDataType -json"});
}

TEST_F(FetchJson, ReturnsTheWholeTopLevelObject) {
  tools->answer("SPUSBDataType.json", R"({"SPUSBDataType": [], "other": 1})");
  start("SPUSBDataType");
  queue->settle();
  ASSERT_TRUE(result->has_value());
  EXPECT_FALSE((*result)->error.has_value());
  EXPECT_EQ((*result)->content, nlohmann::json::parse(R"({"SPUSBDataType": [], "other": 1})"));
}

TEST_F(FetchJson, ReturnsAnObjectWithoutTheSectionAsItIs) {
  tools->answer("SPUSBDataType.json", "{}");
  start("SPUSBDataType");
  queue->settle();
  ASSERT_TRUE(result->has_value());
  EXPECT_FALSE((*result)->error.has_value());
}

TEST_F(FetchJson, DoesNotBlockTheMainThreadWhileTheToolRuns) {
  tools->answer("SPUSBDataType.json", "{}");
  start("SPUSBDataType");
  EXPECT_EQ(queue->backgroundCount(), 1U);
  EXPECT_FALSE(result->has_value());
}

TEST_F(FetchJson, TriesAgainAfter150Milliseconds) {
  tools->answerOnce("SPUSBDataType.json", "");
  tools->answer("SPUSBDataType.json", R"({"second": true})");
  start("SPUSBDataType");
  queue->advance(149ms);
  EXPECT_EQ(tools->runCount("SPUSBDataType.json"), 1U);
  EXPECT_FALSE(result->has_value());
  queue->advance(1ms);
  EXPECT_EQ(tools->runCount("SPUSBDataType.json"), 2U);
  ASSERT_TRUE(result->has_value());
  EXPECT_EQ((*result)->content, nlohmann::json::parse(R"({"second": true})"));
}

TEST_F(FetchJson, GivesUpAfterTwoAttemptsNamingTheSection) {
  for (const std::string output : {"", "no JSON", "[]", "7", "{\"SPUSBDataType\": ["}) {
    SCOPED_TRACE(output);
    result->reset();
    const std::size_t runsBefore = tools->runCount("SPUSBDataType.json");
    tools->answer("SPUSBDataType.json", output);
    start("SPUSBDataType");
    queue->advance(10s);
    ASSERT_TRUE(result->has_value());
    ASSERT_TRUE((*result)->error.has_value());
    EXPECT_EQ((*result)->error->domain, "Tamberline");
    EXPECT_EQ((*result)->error->code, 1);
    EXPECT_EQ((*result)->error->description, "Could not parse SPUSBDataType");
    EXPECT_EQ(tools->runCount("SPUSBDataType.json") - runsBefore, 2U);
  }
}

TEST_F(FetchJson, StartsNoToolOnceNobodyWantsTheResult) {
  start("SPUSBDataType");
  cancelRequest->isCancelled = true;
  queue->advance(10s);
  ASSERT_TRUE(result->has_value());
  EXPECT_EQ(tools->runCount("SPUSBDataType.json"), 1U);
}

TEST_F(FetchJson, StartsNoSecondAttemptWhenCancelledBetweenTheTwo) {
  start("SPUSBDataType");
  queue->advance(100ms);
  cancelRequest->isCancelled = true;
  queue->advance(10s);
  ASSERT_TRUE(result->has_value());
  EXPECT_TRUE((*result)->error.has_value());
  EXPECT_EQ(tools->runCount("SPUSBDataType.json"), 1U);
}

} // namespace
} // namespace tamberline
