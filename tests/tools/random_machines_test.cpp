#include "base/text.h"
#include "inspect/answer_text.h"
#include "inspect/document.h"
#include "inspect/panel_text.h"
#include "random_machine.h"
#include "support/build_kind.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"
#include "views/panel_inputs.h"
#include "views/scan_answers.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>

namespace tamberline {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::uint32_t machineCount = isSlow ? 200 : 1'000;

/// A scanner that has scanned one random machine.
struct ScannedMachine {
  explicit ScannedMachine(std::uint32_t seed) : machine(makeRandomMachine(seed)) {
    for (const auto& [question, answer] : machine.answers) {
      source->answer(question, answer);
    }
    scan();
  }

  void scan() const {
    scanner->scan();
    queue->settle();
  }

  Json document() const { return inspectionDocument(*scanner); }

  RandomMachine machine;
  std::shared_ptr<FakeMachine> source = std::make_shared<FakeMachine>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.machine = source, .queue = queue},
                           .events = std::make_shared<SimulatedEventSource>()});
};

void countDevices(const Json& nodes, std::map<std::string, int>& counts) {
  for (const Json& node : nodes) {
    if (node.contains("device")) {
      ++counts[node["device"]["name"]];
    }
    countDevices(node["children"], counts);
  }
}

void collectIDs(const Json& nodes, std::multiset<std::string>& ids) {
  for (const Json& node : nodes) {
    ids.insert(node["id"].get<std::string>());
    collectIDs(node["children"], ids);
  }
}

std::int64_t sumOfOwnDraws(const Json& node) {
  std::int64_t sum = 0;
  if (node["kind"] == "usbDevice" && node["device"]["busPowerUsed"].is_number()) {
    sum = node["device"]["busPowerUsed"].get<std::int64_t>();
  }
  for (const Json& child : node["children"]) {
    sum += sumOfOwnDraws(child);
  }
  return sum;
}

void collectRowIDs(const Json& rows, std::set<std::string>& ids) {
  for (const Json& row : rows) {
    ids.insert(row["id"].get<std::string>());
    collectRowIDs(row["children"], ids);
  }
}

void expectEveryDeviceOnceUnlessARuleLeavesItOut(const ScannedMachine& scanned,
                                                 const Json& document) {
  std::map<std::string, int> counts;
  countDevices(document["portTree"], counts);
  for (const std::string& name : scanned.machine.shownDevices) {
    EXPECT_EQ(counts[name], 1) << name;
  }
  for (const std::string& name : scanned.machine.hiddenDevices) {
    EXPECT_EQ(counts[name], 0) << name;
  }
}

void expectUniqueIdentifiers(const Json& document) {
  std::multiset<std::string> ids;
  collectIDs(document["portTree"], ids);
  for (const std::string& id : ids) {
    EXPECT_EQ(ids.count(id), 1U) << id;
  }
}

void expectSumsOfDraws(const Json& document) {
  for (const Json& node : document["portTree"]) {
    EXPECT_EQ(node["usedMa"], sumOfOwnDraws(node)) << node["id"];
  }
}

void expectSearchFindsWhatIsShown(const ScannedMachine& scanned, const Json& document) {
  std::multiset<std::string> names;
  for (const Json& entry : document["searchEntries"]) {
    names.insert(entry["name"].get<std::string>());
  }
  for (const std::string& name : scanned.machine.shownDevices) {
    EXPECT_EQ(names.count(name), 1U) << name;
  }
}

int countOfKind(const Json& nodes, const std::string& kind) {
  int count = 0;
  for (const Json& node : nodes) {
    count += (node["kind"] == kind ? 1 : 0) + countOfKind(node["children"], kind);
  }
  return count;
}

void expectOneAdapterAtMost(const Json& document) {
  EXPECT_LE(countOfKind(document["portTree"], "charger"), 1);
}

void expectChargingOnlyMarkersAlone(const Json& document) {
  for (const Json& node : document["portTree"]) {
    if (countOfKind(node["children"], "chargingOnly") > 0) {
      EXPECT_EQ(node["children"].size(), 1U) << node["id"];
    }
  }
}

void expectTheWholeTreeInThePanel(const Json& document) {
  std::multiset<std::string> nodeIDs;
  collectIDs(document["portTree"], nodeIDs);
  std::set<std::string> rowIDs;
  for (const Json& card : document["panel"]["cards"]) {
    rowIDs.insert(card["id"].get<std::string>());
    if (card.contains("rows")) {
      collectRowIDs(card["rows"], rowIDs);
    }
  }
  EXPECT_EQ(std::set<std::string>(nodeIDs.begin(), nodeIDs.end()), rowIDs);
}

std::size_t characterCount(const std::string& text) {
  const auto isStart = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
  };
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isStart));
}

void expectAnswersAboutShownNodes(const Json& document, std::size_t& answerCount) {
  std::multiset<std::string> ids;
  collectIDs(document["portTree"], ids);
  for (const Json& answer : document["answers"]) {
    ++answerCount;
    EXPECT_EQ(ids.count(answer["nodeId"]), 1U) << answer;
    EXPECT_TRUE(answer["limitingNodeId"].is_null() || ids.count(answer["limitingNodeId"]) == 1U)
        << answer;
    for (const Json& other : answer["otherNodeIds"]) {
      EXPECT_EQ(ids.count(other), 1U) << answer;
    }
    EXPECT_LE(characterCount(answer["headline"]), 60U) << answer;
  }
}

void expectPlainTextForATerminal(const ScannedMachine& scanned) {
  const std::string text =
      answerText(answersOf(*scanned.scanner), /*useColors=*/false) +
      panelText(describePanel(panelInputs(*scanned.scanner)), /*useColors=*/false);
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_EQ(text.find("\u202e"), std::string::npos);
}

/// Without line breaks, spaces and the drawing characters of the tree.
std::string wordsOf(std::string text) {
  for (const char* part : {"│", "├", "└", "─", " ", "\n"}) {
    text = replacedAll(text, part, "");
  }
  return text;
}

void expectWrappingToLoseNothing(const ScannedMachine& scanned) {
  const Panel panel = describePanel(panelInputs(*scanned.scanner));
  EXPECT_EQ(wordsOf(panelText(panel, /*useColors=*/false, 40)),
            wordsOf(panelText(panel, /*useColors=*/false)));
}

TEST(RandomMachines, KeepTheRules) {
  std::size_t answerCount = 0;
  for (std::uint32_t seed = 0; seed < machineCount && !HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const ScannedMachine scanned(seed);
    const Json document = scanned.document();
    expectEveryDeviceOnceUnlessARuleLeavesItOut(scanned, document);
    expectUniqueIdentifiers(document);
    expectSumsOfDraws(document);
    expectSearchFindsWhatIsShown(scanned, document);
    expectOneAdapterAtMost(document);
    expectChargingOnlyMarkersAlone(document);
    expectTheWholeTreeInThePanel(document);
    expectAnswersAboutShownNodes(document, answerCount);
    expectPlainTextForATerminal(scanned);
    expectWrappingToLoseNothing(scanned);
  }
  EXPECT_GT(answerCount, 0U);
}

TEST(RandomMachines, LookTheSameInTheNextScan) {
  for (std::uint32_t seed = 0; seed < 100; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const ScannedMachine scanned(seed);
    const Json document = scanned.document();
    scanned.scan();
    EXPECT_EQ(scanned.document(), document);
  }
}

} // namespace
} // namespace tamberline
