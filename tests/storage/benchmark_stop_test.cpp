#include "storage/benchmark.h"
#include "support/fake_volume_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <future>
#include <thread>

namespace tamberline {
namespace {

const std::string mountPoint = "/Volumes/Data";

constexpr std::chrono::seconds patience{10};

std::ptrdiff_t countOf(const std::string& kind, const std::vector<std::string>& steps) {
  return std::count_if(steps.begin(), steps.end(),
                       [&](const std::string& step) { return step.starts_with(kind); });
}

/// A running test on a separate thread. It stops in the middle of one step until the ending program
/// has asked it to stop.
class BenchmarkStop : public testing::Test {
protected:
  /// `begin` runs a routine that reaches the step for the nth time; if it does not, the test fails.
  BenchmarkResult resultOfStoppingAt(const std::string& step, int occurrence,
                                     const std::function<BenchmarkResult()>& begin) {
    std::promise<void> reached;
    std::promise<void> goOn;
    files->during = [&, count = 0](const std::string& present) mutable {
      if (present.starts_with(step) && ++count == occurrence) {
        reached.set_value();
        goOn.get_future().wait_for(patience);
      }
    };
    std::future<BenchmarkResult> result = std::async(std::launch::async, begin);
    EXPECT_EQ(reached.get_future().wait_for(patience), std::future_status::ready) << step;
    std::thread ending([&] {
      benchmark.stop();
      filesAfterStop = files->files().size();
    });
    waitUntilStopIsAsked();
    goOn.set_value();
    ending.join();
    return result.get();
  }

  /// From then on new routines are rejected, which is the only sign of it.
  void waitUntilStopIsAsked() {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!std::holds_alternative<std::monostate>(benchmark.writeSync("/Volumes/Other", 0))) {
      benchmark.cleanup("/Volumes/Other");
      std::this_thread::yield();
      ASSERT_LT(std::chrono::steady_clock::now(), end);
    }
  }

  std::shared_ptr<FakeVolumeFiles> files = std::make_shared<FakeVolumeFiles>();
  Benchmark benchmark{files};
  std::size_t filesAfterStop = 99;
};

TEST_F(BenchmarkStop, WaitsForTheChunkThatIsBeingWrittenAndRemovesTheFile) {
  const BenchmarkResult result =
      resultOfStoppingAt("write ", 2, [this] { return benchmark.writeSync(mountPoint, 100); });
  EXPECT_EQ(result, BenchmarkResult());
  EXPECT_EQ(filesAfterStop, 0U);
  EXPECT_EQ(countOf("write ", files->steps()), 2);
}

TEST_F(BenchmarkStop, WaitsForTheChunkThatIsBeingReadAndRemovesTheFile) {
  benchmark.writeSync(mountPoint, 100);
  const BenchmarkResult result =
      resultOfStoppingAt("read ", 3, [this] { return benchmark.readSync(mountPoint); });
  EXPECT_EQ(result, BenchmarkResult());
  EXPECT_EQ(filesAfterStop, 0U);
  EXPECT_EQ(countOf("read ", files->steps()), 3);
}

TEST_F(BenchmarkStop, WaitsForAFileThatIsJustBeingMade) {
  const BenchmarkResult result = resultOfStoppingAt(
      "create /Volumes/Data", 1, [this] { return benchmark.writeSync(mountPoint, 100); });
  EXPECT_EQ(result, BenchmarkResult());
  EXPECT_EQ(filesAfterStop, 0U);
}

TEST_F(BenchmarkStop, WaitsForAFileThatIsJustBeingRemoved) {
  benchmark.writeSync(mountPoint, 1);
  resultOfStoppingAt("remove /Volumes/Data", 1, [this] {
    benchmark.cleanup(mountPoint);
    return BenchmarkResult();
  });
  EXPECT_EQ(filesAfterStop, 0U);
}

} // namespace
} // namespace tamberline
