#include "storage/benchmark.h"
#include "support/fake_volume_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <thread>

namespace tamberline {
namespace {

const std::string mountPoint = "/Volumes/Data";

/// A test under way on a thread of its own, which stands still in the middle of one step until the
/// program that ends has asked it to stop.
class BenchmarkStop : public testing::Test {
protected:
  /// `begin` runs a routine that will come to the step for the nth time.
  BenchmarkResult resultOfStoppingAt(const std::string& step, int occurrence,
                                     const std::function<BenchmarkResult()>& begin) {
    std::promise<void> reached;
    std::promise<void> goOn;
    files->during = [&, count = 0](const std::string& present) mutable {
      if (present.starts_with(step) && ++count == occurrence) {
        reached.set_value();
        goOn.get_future().wait();
      }
    };
    std::future<BenchmarkResult> result = std::async(std::launch::async, begin);
    reached.get_future().wait();
    std::promise<void> stopped;
    std::thread ending([&] {
      benchmark.stop();
      filesAfterStop = files->files().size();
      stopped.set_value();
    });
    waitUntilStopIsAsked();
    goOn.set_value();
    ending.join();
    return result.get();
  }

  /// A routine that begins is turned away from then on; nothing else shows it.
  void waitUntilStopIsAsked() {
    Benchmark& asked = benchmark;
    while (!std::holds_alternative<std::monostate>(asked.writeSync("/Volumes/Other", 0))) {
      asked.cleanup("/Volumes/Other");
      std::this_thread::yield();
    }
  }

  std::shared_ptr<FakeVolumeFiles> files = std::make_shared<FakeVolumeFiles>();
  Benchmark benchmark{files};
  std::size_t filesAfterStop = 99;
};

TEST_F(BenchmarkStop, WaitsForTheChunkThatIsBeingWrittenAndRemovesTheFile) {
  const BenchmarkResult result = resultOfStoppingAt(
      "write 8388608", 2, [this] { return benchmark.writeSync(mountPoint, 100); });
  EXPECT_EQ(result, BenchmarkResult());
  EXPECT_EQ(filesAfterStop, 0U);
  const std::vector<std::string> steps = files->steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "write 8388608"), 2);
}

TEST_F(BenchmarkStop, WaitsForTheChunkThatIsBeingReadAndRemovesTheFile) {
  benchmark.writeSync(mountPoint, 100);
  const BenchmarkResult result =
      resultOfStoppingAt("read", 3, [this] { return benchmark.readSync(mountPoint); });
  EXPECT_EQ(result, BenchmarkResult());
  EXPECT_EQ(filesAfterStop, 0U);
  const std::vector<std::string> steps = files->steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "read 8388608"), 3);
}

TEST_F(BenchmarkStop, WaitsForAFileThatIsJustBeingMade) {
  const BenchmarkResult result = resultOfStoppingAt(
      "create /Volumes/Data", 1, [this] { return benchmark.writeSync(mountPoint, 100); });
  EXPECT_EQ(result, BenchmarkResult());
  EXPECT_EQ(filesAfterStop, 0U);
}

} // namespace
} // namespace tamberline
