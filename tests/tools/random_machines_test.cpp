#include "inspect/document.h"
#include "inspect/panel_text.h"
#include "random_machine.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"
#include "views/panel_inputs.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <functional>
#include <map>
#include <set>
#include <string>

namespace tamberline {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::uint32_t machineCount = 200;

/// A scanner that scanned one random machine.
struct ScannedMachine {
  explicit ScannedMachine(std::uint32_t seed) : machine(makeRandomMachine(seed)) {
    for (const auto& [fileName, content] : machine.files) {
      tools->answer(fileName, content);
    }
    scan();
  }

  void scan() const {
    scanner->scan();
    queue->settle();
  }

  Json document() const { return inspectionDocument(*scanner); }

  RandomMachine machine;
  std::shared_ptr<FakeTools> tools = std::make_shared<FakeTools>();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.tools = tools, .queue = queue},
                           .events = std::make_shared<SimulatedEventSource>()});
};

void forEachMachine(const std::function<void(const ScannedMachine&)>& check) {
  for (std::uint32_t seed = 0; seed < machineCount && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    check(ScannedMachine(seed));
  }
}

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

TEST(RandomMachines, ShowEveryDeviceOnceUnlessARuleLeavesItOut) {
  forEachMachine([](const ScannedMachine& scanned) {
    std::map<std::string, int> counts;
    countDevices(scanned.document()["portTree"], counts);
    for (const std::string& name : scanned.machine.shownDevices) {
      EXPECT_EQ(counts[name], 1) << name;
    }
    for (const std::string& name : scanned.machine.hiddenDevices) {
      EXPECT_EQ(counts[name], 0) << name;
    }
  });
}

TEST(RandomMachines, GiveEveryNodeAnIdentifierOfItsOwnThatStaysTheSame) {
  forEachMachine([](const ScannedMachine& scanned) {
    std::multiset<std::string> ids;
    collectIDs(scanned.document()["portTree"], ids);
    for (const std::string& id : ids) {
      EXPECT_EQ(ids.count(id), 1U) << id;
    }
    scanned.scan();
    std::multiset<std::string> idsOfTheNextScan;
    collectIDs(scanned.document()["portTree"], idsOfTheNextScan);
    EXPECT_EQ(ids, idsOfTheNextScan);
  });
}

TEST(RandomMachines, AddUpWhatTheDevicesDraw) {
  forEachMachine([](const ScannedMachine& scanned) {
    const Json document = scanned.document();
    for (const Json& node : document["portTree"]) {
      EXPECT_EQ(node["usedMa"], sumOfOwnDraws(node)) << node["id"];
    }
  });
}

TEST(RandomMachines, FindEveryShownDeviceBySearch) {
  forEachMachine([](const ScannedMachine& scanned) {
    const Json document = scanned.document();
    std::multiset<std::string> names;
    for (const Json& entry : document["searchEntries"]) {
      names.insert(entry["name"].get<std::string>());
    }
    const std::multiset<std::string> expected(scanned.machine.shownDevices.begin(),
                                              scanned.machine.shownDevices.end());
    EXPECT_EQ(names, expected);
  });
}

TEST(RandomMachines, ShowTheWholeTreeInThePanel) {
  forEachMachine([](const ScannedMachine& scanned) {
    const Json document = scanned.document();
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
  });
}

TEST(RandomMachines, SendNothingButPlainTextToATerminal) {
  forEachMachine([](const ScannedMachine& scanned) {
    const std::string text =
        panelText(describePanel(panelInputs(*scanned.scanner)), /*useColors=*/false);
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_EQ(text.find("\u202e"), std::string::npos);
  });
}

} // namespace
} // namespace tamberline
