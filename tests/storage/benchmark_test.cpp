#include "storage/benchmark.h"
#include "storage/chunk_buffer.h"
#include "support/fake_volume_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <set>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

using Create = VolumeFolder::CreateFailure;

constexpr const char* mountPoint = "/Volumes/Data";
const std::string path = "/Volumes/Data/.tamberline_benchmark.tmp";

/// A benchmark over volumes in memory, with a clock that the test moves.
class BenchmarkTest : public testing::Test {
protected:
  BenchmarkResult write(std::int64_t sizeMB = 20, const BenchmarkOrder& order = {}) {
    return benchmark.writeSync(mountPoint, sizeMB, order);
  }
  BenchmarkResult read(const BenchmarkOrder& order = {}) {
    return benchmark.readSync(mountPoint, order);
  }

  /// Sets the duration of every step of this kind.
  void letTake(const std::string& kind, std::chrono::milliseconds duration) {
    files->during = [this, kind, duration](const std::string& step) {
      if (step.starts_with(kind)) {
        now += duration;
      }
    };
  }

  static double speedOf(const BenchmarkResult& result) { return std::get<double>(result); }

  std::shared_ptr<FakeVolumeFiles> files = std::make_shared<FakeVolumeFiles>();
  std::chrono::steady_clock::time_point now;
  Benchmark benchmark{files, {.now = [this] { return now; }}};
};

TEST_F(BenchmarkTest, WritesChunkByChunkAndFlushesBeforeItCloses) {
  write();
  EXPECT_EQ(files->steps(), (std::vector<std::string>{
                                "look for room in /Volumes/Data", "create " + path, "write 8388608",
                                "write 8388608", "write 3222784", "flush", "close"}));
  EXPECT_EQ(files->files().at(path), 20'000'000);
}

TEST_F(BenchmarkTest, ReadsToTheEndOfWhatItWrote) {
  write();
  const std::size_t before = files->steps().size();
  read();
  const std::vector<std::string> steps = files->steps();
  EXPECT_EQ(
      std::vector<std::string>(steps.begin() + static_cast<std::ptrdiff_t>(before), steps.end()),
      (std::vector<std::string>{"open " + path, "read 8388608", "read 8388608", "read 8388608",
                                "read 8388608", "close"}));
}

TEST_F(BenchmarkTest, WritesTwoHundredAndFiftySixMegabytesUnlessToldOtherwise) {
  EXPECT_EQ(benchmark.sizeMB(), 256);
  write(benchmark.sizeMB());
  EXPECT_EQ(files->files().at(path), 256'000'000);
}

TEST_F(BenchmarkTest, CountsDecimalMegabytesASecond) {
  letTake("write", 100ms); // three writes of 20 MB
  EXPECT_DOUBLE_EQ(speedOf(write()), 20 / 0.3);
  letTake("read", 50ms); // three reads and the one that finds the end of the file
  EXPECT_DOUBLE_EQ(speedOf(read()), 20 / 0.2);
}

TEST_F(BenchmarkTest, CountsTheTimeUntilTheMediumHasEverything) {
  letTake("flush", 500ms);
  EXPECT_DOUBLE_EQ(speedOf(write()), 40);
}

TEST_F(BenchmarkTest, CountsAFailedFlushLikeAnyOther) {
  files->canFlush = false;
  letTake("flush", 500ms);
  EXPECT_DOUBLE_EQ(speedOf(write()), 40);
  EXPECT_EQ(files->steps().back(), "close");
}

TEST_F(BenchmarkTest, ExcludesOpeningAndClosingFromTheTime) {
  letTake("write", 1s);
  files->during = [this](const std::string& step) {
    now += step == "write 3222784" ? 1s : step.starts_with("create") || step == "close" ? 1h : 0s;
  };
  EXPECT_DOUBLE_EQ(speedOf(write()), 20);
}

TEST_F(BenchmarkTest, GivesNoSpeedWhenNoTimePassed) {
  EXPECT_EQ(write(), BenchmarkResult(0.0));
  EXPECT_EQ(read(), BenchmarkResult(0.0));
}

TEST_F(BenchmarkTest, ContinuesAfterAPartialWrite) {
  files->mostBytesAtOnce = 5'000'000;
  letTake("write", 100ms);
  EXPECT_DOUBLE_EQ(speedOf(write()), 20 / 0.4);
  EXPECT_EQ(files->files().at(path), 20'000'000);
  EXPECT_EQ(speedOf(read()), 0);
}

TEST_F(BenchmarkTest, ReadsOnlyTheRestOfATruncatedFile) {
  write();
  files->truncate(path, 5'000'000);
  letTake("read", 250ms);
  EXPECT_DOUBLE_EQ(speedOf(read()), 10);
}

TEST_F(BenchmarkTest, ReadsNothingFromAnEmptyFile) {
  write();
  files->truncate(path, 0);
  letTake("read", 250ms);
  EXPECT_EQ(speedOf(read()), 0);
}

TEST_F(BenchmarkTest, Needs128MegabytesInAdditionToItsFile) {
  struct Row {
    std::optional<std::uint64_t> freeBytes;
    bool fits;
  };
  for (const Row& row : {Row{384'000'000, true}, Row{383'999'999, false}, Row{300'000'000, false},
                         Row{0, false}, Row{std::nullopt, true}}) {
    SCOPED_TRACE(row.freeBytes ? std::to_string(*row.freeBytes) : "unknown");
    files->free = row.freeBytes;
    const BenchmarkResult result = write(256);
    EXPECT_EQ(std::holds_alternative<double>(result), row.fits);
    if (!row.fits) {
      EXPECT_EQ(result, BenchmarkResult(BenchmarkError::noSpace));
    }
  }
}

TEST_F(BenchmarkTest, MakesNoFileWithoutRoomForIt) {
  files->free = 0;
  write();
  EXPECT_EQ(files->steps(), std::vector<std::string>{"look for room in /Volumes/Data"});
}

TEST_F(BenchmarkTest, ReportsTheReasonOfAFailure) {
  struct Row {
    const char* what;
    void (*arrange)(FakeVolumeFiles& files);
    BenchmarkError error;
    bool isWritingWrong;
  };
  const std::vector<Row> rows = {
      {"folder", [](FakeVolumeFiles& f) { f.canOpenFolders = false; }, BenchmarkError::notWritable,
       true},
      {"create", [](FakeVolumeFiles& f) { f.createFailure = Create::readOnly; },
       BenchmarkError::notWritable, true},
      {"create for others", [](FakeVolumeFiles& f) { f.createFailure = Create::notPermitted; },
       BenchmarkError::noPermission, true},
      {"create without room", [](FakeVolumeFiles& f) { f.createFailure = Create::noRoom; },
       BenchmarkError::noSpace, true},
      {"write to a full volume",
       [](FakeVolumeFiles& f) { f.writeFailures[2] = VolumeFile::noSpaceLeft; },
       BenchmarkError::noSpace, true},
      {"memory in the way", [](FakeVolumeFiles& f) { f.canReadMedium = false; },
       BenchmarkError::notMeasurable, true},
      {"reading memory", [](FakeVolumeFiles& f) { f.hasReadMedium = false; },
       BenchmarkError::notMeasurable, false},
      {"first write", [](FakeVolumeFiles& f) { f.writeFailures[1] = -1; }, BenchmarkError::ioError,
       true},
      {"nth write", [](FakeVolumeFiles& f) { f.writeFailures[3] = -1; }, BenchmarkError::ioError,
       true},
      {"write of nothing", [](FakeVolumeFiles& f) { f.writeFailures[2] = 0; },
       BenchmarkError::ioError, true},
      {"open", [](FakeVolumeFiles& f) { f.canOpen = false; }, BenchmarkError::ioError, false},
      {"first read", [](FakeVolumeFiles& f) { f.readFailures[1] = -1; }, BenchmarkError::ioError,
       false},
      {"nth read", [](FakeVolumeFiles& f) { f.readFailures[3] = -1; }, BenchmarkError::ioError,
       false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    files = std::make_shared<FakeVolumeFiles>();
    row.arrange(*files);
    Benchmark failing(files);
    const BenchmarkResult written = failing.writeSync(mountPoint, 20);
    EXPECT_EQ(row.isWritingWrong ? written : failing.readSync(mountPoint),
              BenchmarkResult(row.error));
    EXPECT_EQ(std::holds_alternative<BenchmarkError>(written), row.isWritingWrong);
    EXPECT_EQ(files->openCount(), 0);
    failing.cleanup(mountPoint);
    EXPECT_TRUE(files->files().empty());
  }
}

TEST_F(BenchmarkTest, WritesRandomBytesThatItMadeOnce) {
  std::vector<const std::byte*> starts;
  std::vector<std::byte> first;
  files->look = [&](std::span<const std::byte> bytes) {
    starts.push_back(bytes.data());
    if (first.empty()) {
      first.assign(bytes.begin(), bytes.end());
    } else {
      EXPECT_EQ(std::memcmp(first.data(), bytes.data(), bytes.size()), 0);
    }
  };
  write();
  EXPECT_EQ(starts, std::vector<const std::byte*>(3, starts.at(0)));
  std::vector<std::uint64_t> words(first.size() / sizeof(std::uint64_t));
  std::memcpy(words.data(), first.data(), first.size());
  std::sort(words.begin(), words.end());
  EXPECT_EQ(std::adjacent_find(words.begin(), words.end()), words.end()); // no repeated values
}

TEST_F(BenchmarkTest, WritesFromMemoryThatADriveCanTakeDirectly) {
  files->look = [](std::span<const std::byte> bytes) {
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(bytes.data()) % 4096, 0U);
  };
  write();
}

TEST_F(BenchmarkTest, RemovesItsFileAndIgnoresAMissingOne) {
  write();
  benchmark.cleanup(mountPoint);
  EXPECT_TRUE(files->files().empty());
  EXPECT_EQ(files->steps().back(), "remove " + path);
  benchmark.cleanup(mountPoint);
  EXPECT_TRUE(files->files().empty());
}

TEST_F(BenchmarkTest, RemovesEveryFileWhenTheProgramEnds) {
  write();
  benchmark.writeSync("/Volumes/Other", 1);
  benchmark.writeSync("/Volumes/Third", 1);
  benchmark.cleanup("/Volumes/Third");
  benchmark.stop();
  EXPECT_TRUE(files->files().empty());
  const std::vector<std::string> steps = files->steps();
  EXPECT_EQ(
      std::count(steps.begin(), steps.end(), "remove /Volumes/Third/.tamberline_benchmark.tmp"), 1);
}

TEST_F(BenchmarkTest, StartsNoTestOnceTheProgramEnds) {
  benchmark.stop();
  EXPECT_EQ(write(), BenchmarkResult());
  EXPECT_TRUE(files->files().empty());
  EXPECT_TRUE(files->steps().empty());
}

TEST_F(BenchmarkTest, ExcludesTheCreationOfRandomBytesFromTheTime) {
  Benchmark filling(files, {.now = [this] { return now; },
                            .fill = [this](ChunkBuffer& /*buffer*/) { now += 1h; }});
  letTake("write", 100ms); // three writes of 20 MB
  EXPECT_DOUBLE_EQ(speedOf(filling.writeSync(mountPoint, 20)), 20 / 0.3);
}

TEST_F(BenchmarkTest, AcceptsOnlyTheRequestedVolume) {
  files->identities[mountPoint] = {.text = "stick"};
  EXPECT_TRUE(std::holds_alternative<double>(write(1, {.volume = VolumeIdentity{"stick"}})));
  benchmark.cleanup(mountPoint);
  const std::vector<std::string> before = files->steps();
  files->truncate(path, 17); // another program's change
  for (const char* other : {"other stick", ""}) {
    files->identities[mountPoint] = {.text = other};
    for (const char* asked : {"stick", ""}) {
      EXPECT_EQ(write(1, {.volume = VolumeIdentity{asked}}),
                BenchmarkResult(BenchmarkError::volumeChanged));
      benchmark.cleanup(mountPoint);
    }
  }
  EXPECT_EQ(files->steps(), before);
  EXPECT_EQ(files->files().at(path), 17);
}

TEST_F(BenchmarkTest, ReadsNothingThatItDidNotWrite) {
  files->truncate(path, 17);
  EXPECT_EQ(read(), BenchmarkResult(BenchmarkError::ioError));
}

TEST_F(BenchmarkTest, ReadsNoFurtherThanAChunkBeyondWhatItWrote) {
  write();
  files->truncate(path, 1'000'000'000'000);
  EXPECT_TRUE(std::holds_alternative<double>(read()));
  const std::vector<std::string> steps = files->steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "read 8388608"), 3);
}

TEST_F(BenchmarkTest, ReportsItsProgressAfterEachChunk) {
  std::vector<int> percents;
  const BenchmarkOrder order{
      .progress = [&](double fraction) { percents.push_back(static_cast<int>(fraction * 100)); }};
  write(20, order);
  EXPECT_EQ(percents, (std::vector<int>{41, 83, 100}));
  percents.clear();
  read(order);
  EXPECT_EQ(percents, (std::vector<int>{41, 83, 100, 100})); // the last read finds the end
}

TEST_F(BenchmarkTest, EndsAfterTheCurrentChunkWhenCancelled) {
  bool isCancelled = false;
  const BenchmarkOrder order{.isCancelled = [&] { return isCancelled; }};
  files->during = [&](const std::string& step) { isCancelled = step.starts_with("write"); };
  EXPECT_EQ(write(20, order), BenchmarkResult());
  EXPECT_EQ(files->files().at(path), 8'388'608);
  files->during = [&](const std::string& step) { isCancelled = step.starts_with("read"); };
  isCancelled = false;
  EXPECT_EQ(read(order), BenchmarkResult());
  EXPECT_EQ(files->steps().back(), "close");
}

TEST(ChunkBuffer, IsFilledToItsLastByte) {
  for (const std::size_t size : {std::size_t{1}, std::size_t{7}, std::size_t{4099}}) {
    SCOPED_TRACE(size);
    ChunkBuffer buffer(size);
    ASSERT_EQ(buffer.bytes().size(), size);
    std::set<std::byte> lastBytes;
    for (int round = 0; round < 20; ++round) {
      buffer.bytes().back() = std::byte{0};
      buffer.fillRandomly();
      lastBytes.insert(buffer.bytes().back());
    }
    EXPECT_GT(lastBytes.size(), 1U);
  }
}

} // namespace
} // namespace tamberline
