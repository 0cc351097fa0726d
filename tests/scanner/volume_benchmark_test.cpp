#include "scanner/volume_fixture.h"

#include <algorithm>
#include <new>

namespace tamberline {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;
using Create = VolumeFolder::CreateFailure;

class VolumeBenchmark : public VolumeFixture {
protected:
  static constexpr const char* path = "/V/.tamberline_benchmark.tmp";

  void test() {
    scanner->runBenchmark("/V");
    queue->settle();
  }
};

TEST_F(VolumeBenchmark, IsPublishedStepByStep) {
  files->during = [this](const std::string& step) {
    diskTime += step == "flush" ? 1000ms : step == "read 8388608" ? 125ms : 0ms;
  };
  test();
  EXPECT_EQ(published, (Lines{"/V: Writing…", "/V: Reading…", "/V: W 20 R 40"}));
  EXPECT_TRUE(files->files().empty());
}

TEST_F(VolumeBenchmark, ShowsItsPhaseInTheUsersLanguage) {
  const LanguageScope german(AppLanguage::de);
  files->canOpen = false;
  test();
  EXPECT_EQ(published,
            (Lines{"/V: Schreiben…", "/V: Lesen…", "/V: failed: E/A-Fehler während des Tests"}));
}

TEST_F(VolumeBenchmark, SaysWhyItFailedAndLeavesNoFile) {
  struct Row {
    const char* what;
    void (*arrange)(FakeVolumeFiles& files);
    Lines published;
  };
  const std::vector<Row> rows = {
      {"read-only",
       [](FakeVolumeFiles& f) { f.createFailure = Create::readOnly; },
       {"/V: Writing…", "/V: failed: Volume is read-only"}},
      {"somebody else's",
       [](FakeVolumeFiles& f) { f.createFailure = Create::notPermitted; },
       {"/V: Writing…", "/V: failed: No permission to write to this volume"}},
      {"full meanwhile",
       [](FakeVolumeFiles& f) { f.writeFailures[2] = VolumeFile::noSpaceLeft; },
       {"/V: Writing…", "/V: failed: Not enough free space"}},
      {"served from memory",
       [](FakeVolumeFiles& f) { f.hasReadMedium = false; },
       {"/V: Writing…", "/V: Reading…", "/V: failed: This file system cannot be measured"}},
      {"300 MB free",
       [](FakeVolumeFiles& f) { f.free = 100'000'000; },
       {"/V: Writing…", "/V: failed: Not enough free space"}},
      {"second write",
       [](FakeVolumeFiles& f) { f.writeFailures[2] = -1; },
       {"/V: Writing…", "/V: failed: I/O error during test"}},
      {"gone before reading",
       [](FakeVolumeFiles& f) { f.canOpen = false; },
       {"/V: Writing…", "/V: Reading…", "/V: failed: I/O error during test"}},
      {"second read",
       [](FakeVolumeFiles& f) { f.readFailures[2] = -1; },
       {"/V: Writing…", "/V: Reading…", "/V: failed: I/O error during test"}},
      {"anything else while writing",
       [](FakeVolumeFiles& f) {
         f.during = [](const std::string& step) {
           if (step == "flush") {
             throw std::bad_alloc();
           }
         };
       },
       {"/V: Writing…", "/V: failed: Test failed"}},
      {"anything else while reading",
       [](FakeVolumeFiles& f) {
         f.during = [](const std::string& step) {
           if (step.starts_with("read")) {
             throw std::bad_alloc();
           }
         };
       },
       {"/V: Writing…", "/V: Reading…", "/V: failed: Test failed"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    files = std::make_shared<FakeVolumeFiles>();
    benchmark = std::make_shared<Benchmark>(files, Benchmark::Setting{.sizeMB = 20});
    published.clear();
    SetUp();
    row.arrange(*files);
    test();
    EXPECT_EQ(published, row.published);
    EXPECT_TRUE(files->files().empty());
    EXPECT_EQ(files->openCount(), 0);
  }
}

TEST_F(VolumeBenchmark, RemovesItsFileBeforeItSaysThatItIsDone) {
  std::size_t filesAtTheEnd = 99;
  const Observation observation =
      scanner->benchmarks.observe([&] { filesAtTheEnd = files->files().size(); });
  test();
  EXPECT_EQ(filesAtTheEnd, 0U);
  EXPECT_EQ(files->steps().back(), std::string("remove ") + path);
}

TEST_F(VolumeBenchmark, RunsOnceWhenTheUserPressesTwice) {
  scanner->runBenchmark("/V");
  scanner->runBenchmark("/V");
  EXPECT_EQ(queue->backgroundCount(), 1U);
  queue->finishOneBackgroundWork(); // now it is reading
  scanner->runBenchmark("/V");
  queue->settle();
  EXPECT_EQ(published.size(), 3U);
  const Lines steps = files->steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), std::string("create ") + path), 1);
}

TEST_F(VolumeBenchmark, RunsAgainAfterItsEnd) {
  test();
  published.clear();
  test();
  EXPECT_EQ(published, (Lines{"/V: Writing…", "/V: Reading…", "/V: W 0 R 0"}));
}

TEST_F(VolumeBenchmark, RunsForSeveralVolumesAtOnce) {
  scanner->runBenchmark("/A");
  scanner->runBenchmark("/B");
  queue->settle();
  EXPECT_EQ(published.at(1), "/A: Writing…; /B: Writing…");
  EXPECT_EQ(published.back(), "/A: W 0 R 0; /B: W 0 R 0");
}

// --- volumes of one drive ---

TEST_F(VolumeBenchmark, WaitsWhileAnotherVolumeOfItsDriveIsMeasured) {
  scanSticks({{"/A", "/B"}, {"/C"}});
  scanner->runBenchmark("/A");
  scanner->runBenchmark("/B");
  scanner->runBenchmark("/C");
  EXPECT_EQ(published.back(), "/A: Writing…; /B: Waiting for the drive…; /C: Writing…");
  EXPECT_EQ(queue->backgroundCount(), 2U);
  queue->settle();
  EXPECT_EQ(published.back(), "/A: W 0 R 0; /B: W 0 R 0; /C: W 0 R 0");
  const Lines steps = files->steps();
  const auto removed = std::find(steps.begin(), steps.end(), "remove /A/.tamberline_benchmark.tmp");
  const auto created = std::find(steps.begin(), steps.end(), "create /B/.tamberline_benchmark.tmp");
  EXPECT_LT(removed, created);
}

TEST_F(VolumeBenchmark, RunsOnceEvenIfPressedWhileItWaits) {
  scanSticks({{"/A", "/B"}});
  scanner->runBenchmark("/A");
  scanner->runBenchmark("/B");
  scanner->runBenchmark("/B");
  queue->settle();
  const Lines steps = files->steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "create /B/.tamberline_benchmark.tmp"), 1);
}

TEST_F(VolumeBenchmark, IsDroppedIfItsVolumeDisappearsWhileItWaits) {
  scanSticks({{"/A", "/B"}});
  scanner->eject("/A");
  scanner->runBenchmark("/B");
  EXPECT_EQ(phaseText(scanner->benchmarks.get().at("/B")), "Waiting for the drive…");
  answerWithEmptyReports(*machine);
  queue->settle();
  EXPECT_TRUE(scanner->benchmarks.get().empty());
  EXPECT_TRUE(files->steps().empty());
}

TEST_F(VolumeBenchmark, UnwindsWithItsScannerWhenTheQueueEndsWhileAnotherWaits) {
  scanSticks({{"/A", "/B"}});
  scanner->runBenchmark("/A");
  scanner->runBenchmark("/B");
  const std::weak_ptr<PortScanner> observed = scanner;
  scanner = nullptr;
  EXPECT_FALSE(observed.expired());
  queue->end();
  EXPECT_TRUE(observed.expired());
}

// --- progress and stopping ---

TEST_F(VolumeBenchmark, ReportsItsProgressInStepsOfFivePercent) {
  Lines told;
  const Observation observation = scanner->testProgress.observe([&] {
    const auto& progress = scanner->testProgress.get();
    const auto found = progress.find("/V");
    told.push_back(found == progress.end() ? "none" : std::to_string(found->second));
  });
  test(); // 8, 16 and 20 of 20 MB
  EXPECT_EQ(told, (Lines{"40", "80", "100", "none", "40", "80", "100", "none"}));
}

TEST_F(VolumeBenchmark, LeavesNoTraceWhenStopped) {
  for (const char* kind : {"write", "read"}) {
    SCOPED_TRACE(kind);
    files->during = [&](const std::string& step) {
      if (step.starts_with(kind)) {
        scanner->stopBenchmark("/V"); // safe: meanwhile the test's thread waits for this one
      }
    };
    test();
    EXPECT_EQ(published.back(), "nothing");
    EXPECT_TRUE(files->files().empty());
  }
  const Lines steps = files->steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "read 8388608"), 1);
}

TEST_F(VolumeBenchmark, CanBeStoppedWhileItWaits) {
  scanSticks({{"/A", "/B"}});
  scanner->runBenchmark("/A");
  scanner->runBenchmark("/B");
  scanner->stopBenchmark("/B");
  queue->runPosted();
  EXPECT_EQ(published.back(), "/A: Writing…");
  queue->settle();
  EXPECT_EQ(published.back(), "/A: W 0 R 0");
}

TEST_F(VolumeBenchmark, IsNotAffectedByStoppingWhenNoneRuns) {
  scanner->stopBenchmark("/V");
  test();
  scanner->stopBenchmark("/V");
  EXPECT_EQ(published.back(), "/V: W 0 R 0");
}

TEST_F(VolumeBenchmark, FailsOnAnException) {
  for (const char* phase : {"Writing…", "Reading…"}) {
    SCOPED_TRACE(phase);
    const Observation observation = scanner->benchmarks.observe([&] {
      const auto found = scanner->benchmarks.get().find("/V");
      if (found != scanner->benchmarks.get().end() && phaseText(found->second) == phase) {
        throw std::bad_alloc();
      }
    });
    test();
    EXPECT_EQ(published.back(), "/V: failed: Test failed");
    EXPECT_TRUE(files->files().empty());
  }
}

// --- results and scans ---

TEST_F(VolumeBenchmark, ResultStaysThroughScans) {
  scanSticks({{"/V"}});
  test();
  answerWithOnePort();
  scan();
  EXPECT_EQ(phaseText(scanner->benchmarks.get().at("/V")), "W 0 R 0");
}

TEST_F(VolumeBenchmark, ResultDisappearsWithItsVolume) {
  scanSticks({{"/V"}, {"/W"}});
  test();
  scanner->runBenchmark("/W");
  queue->settle();
  EXPECT_EQ(published.back(), "/V: W 0 R 0; /W: W 0 R 0");
  scanSticks({{"/W"}});
  EXPECT_EQ(published.back(), "/W: W 0 R 0");
  scanSticks({{"/V"}, {"/W"}});
  EXPECT_EQ(published.back(), "/W: W 0 R 0");
}

TEST_F(VolumeBenchmark, ResultDisappearsWhenItsVolumeIsReplaced) {
  files->identities["/V"] = {.text = "first stick"};
  scanSticks({{"/V"}});
  test();
  scanSticks({{"/V"}});
  EXPECT_EQ(published.back(), "/V: W 0 R 0");
  files->identities["/V"] = {.text = "second stick"};
  scanSticks({{"/V"}});
  EXPECT_EQ(published.back(), "nothing");
}

TEST_F(VolumeBenchmark, FailsIfTheVolumeThatWasShownHasBeenReplaced) {
  files->identities["/V"] = {.text = "shown stick"};
  scanSticks({{"/V"}});
  for (const char* present : {"other stick", ""}) {
    files->identities["/V"] = {.text = present};
    test();
    EXPECT_EQ(published.back(), "/V: failed: This volume is no longer here — scan again");
  }
  EXPECT_TRUE(files->steps().empty());
}

TEST_F(VolumeBenchmark, FailsIfNothingWasMountedDuringTheScan) {
  files->identities["/V"] = {.text = ""};
  scanSticks({{"/V"}});
  test();
  EXPECT_EQ(published.back(), "/V: failed: This volume is no longer here — scan again");
  EXPECT_TRUE(files->steps().empty());
}

TEST_F(VolumeBenchmark, ChecksVolumesAgainAfterAScanDuringTheCheck) {
  scanSticks({{"/V"}});
  const std::size_t looksBefore = files->folderCount();
  scanner->scan();
  queue->advanceWithoutBackground(150ms);
  while (queue->backgroundCount() > 0 && scanner->isScanning.get()) {
    queue->finishOneBackgroundWork();
  }
  ASSERT_EQ(queue->backgroundCount(), 1U); // the check of the volume
  scanner->scan();
  queue->settle();
  EXPECT_EQ(files->folderCount(), looksBefore + 2);
}

TEST_F(VolumeBenchmark, ContinuesDuringAScan) {
  scanSticks({{"/V"}});
  scanner->runBenchmark("/V");
  queue->finishOneBackgroundWork();
  scan();
  EXPECT_EQ(published.back(), "/V: W 0 R 0");
}

TEST_F(VolumeBenchmark, IsPublishedOnTheMainThreadWhoeverRequestedIt) {
  queue->pretendOtherThread(true);
  scanner->runBenchmark("/V");
  EXPECT_TRUE(published.empty());
  queue->pretendOtherThread(false);
  queue->settle();
  EXPECT_EQ(published.size(), 3U);
}

TEST_F(VolumeBenchmark, DoesNotStartIfVolumesAreOnlyShown) {
  scanner = makeScanner();
  test();
  EXPECT_TRUE(scanner->benchmarks.get().empty());
}

TEST_F(VolumeBenchmark, KeepsItsScannerUntilItEnds) {
  const std::weak_ptr<PortScanner> observed = scanner;
  scanner->runBenchmark("/V");
  scanner = nullptr;
  EXPECT_FALSE(observed.expired());
  queue->end();
  EXPECT_TRUE(observed.expired());
}

} // namespace
} // namespace tamberline
