#include "inspect/document.h"
#include "platform/macos/mac_tools.h"
#include "platform/saved/saved_reports.h"
#include "scanner/scan_rules.h"
#include "support/build_kind.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

Answers sample(const std::string& name) {
  SavedReports reports(SAMPLES_FOLDER "/" + name);
  Answers answers;
  for (const Question question : questionsOfAScan) {
    answers[question] = reports.answer(question);
  }
  return answers;
}

/// Docks, chains, hubs in two halves, disks, an adapter.
const Answers& deskMachine() {
  static const Answers machine = sample("desk");
  return machine;
}

/// Different devices on the same computer: its ports keep their limits.
const Answers& changedMachine() {
  static const Answers machine = [] {
    Answers changed = sample("road");
    changed[Question::deviceTree] = deskMachine().at(Question::deviceTree);
    return changed;
  }();
  return machine;
}

const ReadMachine& readDesk() {
  static const ReadMachine machine(deskMachine());
  return machine;
}

const ReadMachine& readChangedMachine() {
  static const ReadMachine machine(changedMachine());
  return machine;
}

std::string text(const ToolFaults& faults) {
  std::string text;
  for (const auto& [question, fault] : faults) {
    text += nameOf(question) + " " + nameOf(fault) + "; ";
  }
  return text;
}

/// A scanner and the rules, with the same machine, faults and time.
class WatchedScanner {
public:
  ~WatchedScanner() { queue->end(); }
  WatchedScanner() = default;
  WatchedScanner(const WatchedScanner&) = delete;
  WatchedScanner& operator=(const WatchedScanner&) = delete;

  void startScan(const Answers& machine, const ToolFaults& faults) {
    now += 1min;
    tools->setAnswers(machine);
    tools->setFaults(faults);
    scanner->scan();
  }

  /// Finishes the scan and compares its result with the rules.
  void endScan(const ReadMachine& machine, const ToolFaults& faults) {
    queue->advance(150ms);
    rules.scan(machine, faults, now);
  }

  void expectWhatTheRulesAllow(const std::string& situation) const {
    const ShownState shown = shownBy(*scanner);
    EXPECT_TRUE(shown == rules.state())
        << situation << ": differs in " << difference(rules.state(), shown);
  }

  std::shared_ptr<FaultyTools> tools = std::make_shared<FaultyTools>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<SimulatedEventSource> events = std::make_shared<SimulatedEventSource>();
  std::chrono::system_clock::time_point now{1'000'000s};
  std::shared_ptr<PortScanner> scanner = PortScanner::create(
      {.acquisition = {.machine = std::make_shared<MacTools>(tools), .queue = queue},
       .events = events,
       .now = [this] { return now; }});
  ScanRules rules;
};

nlohmann::ordered_json freshDocument(const Answers& machine, const ReadMachine& read) {
  WatchedScanner watched;
  watched.startScan(machine, {});
  watched.endScan(read, {});
  return inspectionDocument(*watched.scanner);
}

const nlohmann::ordered_json& documentOfDesk() {
  static const nlohmann::ordered_json document = freshDocument(deskMachine(), readDesk());
  return document;
}

const nlohmann::ordered_json& documentOfChangedMachine() {
  static const nlohmann::ordered_json document =
      freshDocument(changedMachine(), readChangedMachine());
  return document;
}

/// The first scan of a program has the faults, the next one succeeds.
void expectTheRulesInTheFirstScan(WatchedScanner& watched, const ToolFaults& faults) {
  watched.startScan(deskMachine(), faults);
  watched.endScan(readDesk(), faults);
  watched.expectWhatTheRulesAllow(text(faults));
  EXPECT_TRUE(watched.events->isRunning()) << text(faults);
  watched.startScan(deskMachine(), {});
  watched.endScan(readDesk(), {});
  watched.expectWhatTheRulesAllow("the scan after " + text(faults));
}

/// The faults occur in a program that already shows a machine, after everything on it has changed.
void expectTheRulesInALaterScan(WatchedScanner& watched, const ToolFaults& faults) {
  watched.startScan(deskMachine(), {});
  watched.endScan(readDesk(), {});
  watched.startScan(changedMachine(), faults);
  watched.endScan(readChangedMachine(), faults);
  watched.expectWhatTheRulesAllow(text(faults));
  watched.startScan(changedMachine(), {});
  watched.endScan(readChangedMachine(), {});
  watched.expectWhatTheRulesAllow("the scan after " + text(faults));
}

/// Both cases, each with a new scanner. The final documents must be those of scanners without
/// faults.
void expectTheRulesAndFullRecovery(const ToolFaults& faults) {
  WatchedScanner first;
  expectTheRulesInTheFirstScan(first, faults);
  EXPECT_TRUE(inspectionDocument(*first.scanner) == documentOfDesk()) << text(faults);
  WatchedScanner later;
  expectTheRulesInALaterScan(later, faults);
  EXPECT_TRUE(inspectionDocument(*later.scanner) == documentOfChangedMachine()) << text(faults);
}

using PairOfRuns = std::pair<Question, Question>;

std::vector<PairOfRuns> allPairs() {
  std::vector<PairOfRuns> pairs;
  for (std::size_t first = 0; first < questionsOfAScan.size(); ++first) {
    for (std::size_t second = first + 1; second < questionsOfAScan.size(); ++second) {
      pairs.emplace_back(questionsOfAScan.at(first), questionsOfAScan.at(second));
    }
  }
  return pairs;
}

std::string nameOfPair(const testing::TestParamInfo<PairOfRuns>& info) {
  return nameOf(info.param.first) + "_" + nameOf(info.param.second);
}

class PairsOfFaults : public testing::TestWithParam<PairOfRuns> {
protected:
  /// Every fault of one run with every fault of the other. Slow builds use a fifth of the pairs, in
  /// which each fault of each run still occurs twice.
  static std::vector<ToolFaults> allFaults() {
    constexpr std::size_t share = isSlow ? 5 : 1;
    const auto& [first, second] = GetParam();
    std::vector<ToolFaults> all;
    for (std::size_t ofFirst = 0; ofFirst < allToolFaults.size(); ++ofFirst) {
      for (std::size_t ofSecond = ofFirst % share; ofSecond < allToolFaults.size();
           ofSecond += share) {
        all.push_back({{first, allToolFaults.at(ofFirst)}, {second, allToolFaults.at(ofSecond)}});
      }
    }
    return all;
  }
};

TEST_P(PairsOfFaults, FollowTheRulesInTheFirstScanAndLeaveNoTraceInTheNext) {
  for (const ToolFaults& faults : allFaults()) {
    WatchedScanner watched;
    expectTheRulesInTheFirstScan(watched, faults);
  }
}

TEST_P(PairsOfFaults, FollowTheRulesInALaterScanAndLeaveNoTraceInTheNext) {
  WatchedScanner watched; // the same one for all pairs: no fault may leave a trace
  for (const ToolFaults& faults : allFaults()) {
    expectTheRulesInALaterScan(watched, faults);
  }
  EXPECT_TRUE(inspectionDocument(*watched.scanner) == documentOfChangedMachine());
}

INSTANTIATE_TEST_SUITE_P(OfAllRuns, PairsOfFaults, testing::ValuesIn(allPairs()), nameOfPair);

TEST(SingleFaults, FollowTheRules) {
  for (const Question question : questionsOfAScan) {
    for (const ToolFault fault : allToolFaults) {
      expectTheRulesAndFullRecovery({{question, fault}});
    }
  }
}

TEST(AllRunsAtOnce, MayFailInTheSameWay) {
  for (const ToolFault fault : allToolFaults) {
    ToolFaults faults;
    for (const Question question : questionsOfAScan) {
      faults[question] = fault;
    }
    expectTheRulesAndFullRecovery(faults);
  }
}

class HugeOutput : public testing::TestWithParam<Question> {};

/// 30 MB, slightly below the limit for reports; 10 MB in slow builds.
TEST_P(HugeOutput, IsHandledLikeAnyOther) {
  constexpr std::size_t hugeSize = isSlow ? 10'000'000 : 30'000'000;
  for (const ToolFault fault : {ToolFault::printsHugeReport, ToolFault::printsHugeGarbage}) {
    const ToolFaults faults = {{GetParam(), fault}};
    WatchedScanner watched;
    watched.tools->setHugeSize(hugeSize);
    watched.startScan(deskMachine(), faults);
    watched.endScan(readDesk(), faults);
    watched.expectWhatTheRulesAllow(text(faults));
  }
}

std::string nameOfRun(const testing::TestParamInfo<Question>& info) {
  return nameOf(info.param);
}

INSTANTIATE_TEST_SUITE_P(OfEachRun, HugeOutput, testing::ValuesIn(questionsOfAScan), nameOfRun);

/// A scan in which one run takes an hour while another one may fail.
class SlowRuns : public testing::TestWithParam<Question> {
protected:
  /// Finishes everything before the slow run; false if the scan ends without it.
  static bool reachSlowRun(WatchedScanner& watched) {
    constexpr std::size_t runsAtOnce = 4;
    const Question slow = GetParam();
    std::size_t index = 0;
    while (questionsOfAScan.at(index) != slow) {
      ++index;
    }
    for (std::size_t run = 0; run < std::min(index, runsAtOnce); ++run) {
      watched.queue->finishOneBackgroundWork();
    }
    if (index < runsAtOnce) {
      return true;
    }
    watched.queue->advanceWithoutBackground(150ms); // second attempts start, if any
    while (watched.queue->backgroundCount() > 0 && !isNext(watched, index)) {
      watched.queue->finishOneBackgroundWork();
    }
    return watched.queue->backgroundCount() > 0;
  }

  static void expectNothingButWaiting(WatchedScanner& watched, const ToolFaults& faults) {
    const std::string treeBefore = shownBy(*watched.scanner).portTree;
    watched.scanner->scan();
    watched.events->changeRegistry();
    watched.queue->advanceWithoutBackground(1h);
    EXPECT_TRUE(watched.scanner->isScanning.get()) << text(faults);
    EXPECT_EQ(shownBy(*watched.scanner).portTree, treeBefore) << text(faults);
    EXPECT_FALSE(watched.scanner->errorMessage.get().has_value()) << text(faults);
    EXPECT_LE(watched.queue->backgroundCount(), 4U) << "another scan began: " << text(faults);
  }

  static void expectTheRules(const ToolFaults& faults) {
    const ToolFaults withoutLimits = {{Question::deviceTree, ToolFault::isMissing}};
    WatchedScanner watched;
    watched.startScan(deskMachine(), withoutLimits); // so that the next scan asks for them again
    watched.endScan(readDesk(), withoutLimits);
    watched.startScan(changedMachine(), faults);
    if (reachSlowRun(watched)) {
      expectNothingButWaiting(watched, faults);
    }
    watched.endScan(readChangedMachine(), faults);
    watched.expectWhatTheRulesAllow(text(faults));
  }

private:
  /// Whether the waiting work is the probe with this index: everything before it has run.
  static bool isNext(const WatchedScanner& watched, std::size_t index) {
    constexpr std::size_t firstProbe = 4;
    constexpr std::size_t scansBefore = 1;
    if (index == firstProbe) {
      const std::string busesBefore = watched.rules.state().thunderboltBuses;
      return shownBy(*watched.scanner).thunderboltBuses != busesBefore;
    }
    return watched.tools->runCount(questionsOfAScan.at(index - 1)) > scansBefore;
  }
};

TEST_P(SlowRuns, BlockOnlyTheirScanWhateverHappensToTheOtherRuns) {
  expectTheRules({});
  for (const Question other : questionsOfAScan) {
    if (other != GetParam()) {
      for (const ToolFault fault : allToolFaults) {
        expectTheRules({{other, fault}});
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(OfEachRun, SlowRuns, testing::ValuesIn(questionsOfAScan), nameOfRun);

} // namespace
} // namespace tamberline
