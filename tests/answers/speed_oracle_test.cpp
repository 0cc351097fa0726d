#include "answers/answer_text.h"
#include "answers/find_answers.h"
#include "answers/speed_oracle.h"
#include "support/sample_records.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

constexpr int treeCount = 5000;
constexpr std::array speeds = {0.48, 5.0, 10.0, 20.0};

/// A random machine with one bus: what everything can do, and what is seen of it.
class RandomMachine {
public:
  explicit RandomMachine(unsigned seed) : generator_(seed) {}

  double portGbps = 0;

  std::vector<TreeNode> tree() {
    portGbps = speeds.at(static_cast<std::size_t>(number(1, 3)));
    USBBus bus{.rawName = "USB31Bus", .hostController = "Add-on"};
    bus.unnamedMaxGbps = portGbps;
    bus.devices = devicesBelow(portGbps, portGbps, 0);
    return assignStableIDs(buildPortTree({.usbBuses = {bus}}), "");
  }

private:
  int number(int first, int last) {
    return std::uniform_int_distribution<int>(first, last)(generator_);
  }

  double anySpeed() { return speeds.at(static_cast<std::size_t>(number(0, 3))); }

  std::vector<USBDevice> devicesBelow(double parentGbps, double parentLinkGbps, int depth) {
    std::vector<USBDevice> devices;
    for (int count = number(depth == 0 ? 1 : 0, 3); count > 0; --count) {
      devices.push_back(device(parentGbps, parentLinkGbps, depth));
    }
    return devices;
  }

  USBDevice device(double parentGbps, double parentLinkGbps, int depth) {
    const bool isHub = depth < 2 && number(0, 2) > 0;
    const double ability = anySpeed();
    const double cable = number(0, 2) == 0 ? anySpeed() : speeds.back();
    double link = std::min({parentGbps, cable, ability});
    if (parentLinkGbps <= 0.48) {
      link = 0.48;
    }
    USBDevice device{.name = (isHub ? "Hub " : "SSD ") + std::to_string(++names_),
                     .untokenedGbps = link};
    revealAbility(ability, device);
    if (isHub) {
      device.children = devicesBelow(ability, link, depth + 1);
    }
    return device;
  }

  void revealAbility(double ability, USBDevice& device) {
    if (number(0, 2) > 0) {
      device.ability.provenGbps = std::min(ability, anySpeed());
    }
    if (number(0, 2) == 0) {
      device.ability.limitGbps = std::max(ability, anySpeed());
    }
  }

  std::mt19937 generator_;
  int names_ = 0;
};

/// The verdicts on equal paths are the same, and there are few different ones.
class CachedOracle {
public:
  const Verdict& judgeCached(double portGbps, const std::vector<SeenLink>& path) {
    std::vector<double> key = {portGbps};
    for (const SeenLink& link : path) {
      key.insert(key.end(), {link.gbps, link.provenGbps.value_or(0), link.limitGbps.value_or(0)});
    }
    const auto known = verdicts_.find(key);
    return known != verdicts_.end() ? known->second
                                    : verdicts_.emplace(key, judge(portGbps, path)).first->second;
  }

private:
  std::map<std::vector<double>, Verdict> verdicts_;
};

/// A drive of a machine with the way to it.
struct Drive {
  std::vector<const TreeNode*> nodes; // from the bus's socket to the drive
  std::vector<SeenLink> path;

  const std::string& id() const { return nodes.back()->id; }
};

/// What a child proves of its hub must be known to the oracle too: a hub is at least as fast as
/// any of its links. The oracle finds out by itself for the links of the path only.
SeenLink seenLink(const TreeNode& node) {
  const USBDevice& device = std::get<TreeNode::USBDeviceEntry>(node.kind).device;
  SeenLink seen{device.speedGbps(), device.ability.provenGbps, device.ability.limitGbps};
  for (const USBDevice& child : device.children) {
    seen.provenGbps = std::max(seen.provenGbps.value_or(0), child.speedGbps());
  }
  return seen;
}

void collectDrives(const std::vector<TreeNode>& nodes, Drive way, std::vector<Drive>& drives) {
  for (const TreeNode& node : nodes) {
    Drive longer = way;
    if (std::holds_alternative<TreeNode::USBDeviceEntry>(node.kind)) {
      longer.nodes.push_back(&node);
      longer.path.push_back(seenLink(node));
      if (std::get<TreeNode::USBDeviceEntry>(node.kind).device.name.starts_with("SSD")) {
        drives.push_back(longer);
      }
    }
    collectDrives(node.children, longer, drives);
  }
}

bool isSpeedAnswer(const Answer& answer) {
  return answer.kind == AnswerKind::slowConnection || answer.kind == AnswerKind::slowHub ||
         answer.kind == AnswerKind::unknownAbility;
}

std::vector<const Answer*> answersOn(const Drive& drive, const std::vector<Answer>& answers) {
  std::vector<const Answer*> found;
  for (const Answer& answer : answers) {
    const bool isOn =
        answer.nodeID == drive.id() ||
        std::count(answer.otherNodeIDs.begin(), answer.otherNodeIDs.end(), drive.id()) > 0;
    if (isSpeedAnswer(answer) && isOn) {
      found.push_back(&answer);
    }
  }
  return found;
}

std::set<Suspect> namedBy(const Answer& answer, const Drive& drive) {
  std::set<Suspect> named;
  for (std::size_t link = 0; link < drive.nodes.size(); ++link) {
    if (drive.nodes[link]->id != answer.limitingNodeID) {
      continue;
    }
    if (answer.limitingPart != LimitingPart::connection) {
      named.insert({link, false});
    }
    if (answer.limitingPart != LimitingPart::node) {
      named.insert({link, true});
    }
  }
  return named;
}

bool isSubset(const std::set<Suspect>& inner, const std::set<Suspect>& outer) {
  return std::includes(outer.begin(), outer.end(), inner.begin(), inner.end());
}

double speedOf(const Drive& drive) {
  double gbps = drive.path.front().gbps;
  for (const SeenLink& link : drive.path) {
    gbps = std::min(gbps, link.gbps);
  }
  return gbps;
}

/// Nothing is said about a drive of unknown ability unless it is as slow as USB 2.
bool isAnswerExpected(const Verdict& verdict, const Drive& drive) {
  const Suspect itself{drive.path.size() - 1, false};
  const bool isOtherSuspected =
      std::any_of(verdict.suspects.begin(), verdict.suspects.end(),
                  [&](const Suspect& suspect) { return suspect != itself; });
  return isOtherSuspected && (verdict.canDoMore || speedOf(drive) <= 0.48);
}

/// A drive of unknown ability is not mentioned if its hub is already known to slow another device.
bool isHubNamedForAnother(const Drive& drive, const Verdict& verdict,
                          const std::vector<Answer>& answers) {
  return !verdict.canDoMore &&
         std::any_of(answers.begin(), answers.end(), [&](const Answer& answer) {
           const std::set<Suspect> named = namedBy(answer, drive);
           return answer.kind == AnswerKind::slowHub && !named.empty() &&
                  isSubset(verdict.suspects, named);
         });
}

void expectAgreement(const Drive& drive, const Verdict& verdict,
                     const std::vector<Answer>& allAnswers) {
  const std::vector<const Answer*> answers = answersOn(drive, allAnswers);
  if (!isAnswerExpected(verdict, drive)) {
    EXPECT_TRUE(answers.empty()) << "the oracle denies it";
    return;
  }
  EXPECT_TRUE(!answers.empty() || isHubNamedForAnother(drive, verdict, allAnswers)) << "missing";
  for (const Answer* answer : answers) {
    const std::set<Suspect> named = namedBy(*answer, drive);
    EXPECT_TRUE(isSubset(verdict.suspects, named)) << "names too few";
    EXPECT_TRUE(isSubset(named, verdict.holders)) << "names something that limits in no case";
    if (answer->nodeID == drive.id() && answer->weight == AnswerWeight::attention) {
      EXPECT_TRUE(verdict.canDoMore) << "claims too much";
    }
  }
}

std::string describe(const std::vector<TreeNode>& nodes, const std::string& indent = "") {
  std::string text;
  for (const TreeNode& node : nodes) {
    if (const auto* entry = std::get_if<TreeNode::USBDeviceEntry>(&node.kind)) {
      const USBAbility& ability = entry->device.ability;
      text += indent + entry->device.name + " " + std::to_string(entry->device.speedGbps()) +
              " proven " + std::to_string(ability.provenGbps.value_or(0)) + " limit " +
              std::to_string(ability.limitGbps.value_or(0)) + "\n";
    }
    text += describe(node.children, indent + "  ");
  }
  return text;
}

TEST(SpeedOracle, AgreesWithTheAnswersOnRandomTrees) {
  CachedOracle oracle;
  int driveCount = 0;
  int answerCount = 0;
  for (unsigned seed = 0; seed < treeCount; ++seed) {
    RandomMachine machine(seed);
    const std::vector<TreeNode> tree = machine.tree();
    const std::vector<Answer> answers = findAnswers({.portTree = tree});
    std::vector<Drive> drives;
    collectDrives(tree, {}, drives);
    for (const Drive& drive : drives) {
      expectAgreement(drive, oracle.judgeCached(machine.portGbps, drive.path), answers);
      if (testing::Test::HasFailure()) {
        FAIL() << "seed " << seed << ", " << drive.id() << ", port " << machine.portGbps << "\n"
               << describe(tree) << answersText(answers);
      }
      ++driveCount;
      answerCount += answersOn(drive, answers).empty() ? 0 : 1;
    }
  }
  // The trees are varied enough to show both.
  EXPECT_GT(answerCount, driveCount / 10);
  EXPECT_LT(answerCount, driveCount / 2);
}

TEST(SpeedOracle, KnowsTheSimpleCases) {
  const Suspect drive{0, false};
  const Suspect cable{0, true};
  EXPECT_EQ(judge(10, {{.gbps = 10}}).suspects, std::set<Suspect>());
  EXPECT_EQ(judge(10, {{.gbps = 5}}).suspects, (std::set<Suspect>{drive, cable}));
  EXPECT_FALSE(judge(10, {{.gbps = 5}}).canDoMore);
  EXPECT_EQ(judge(10, {{.gbps = 5, .provenGbps = 10}}).suspects, std::set<Suspect>{cable});
  EXPECT_TRUE(judge(10, {{.gbps = 5, .provenGbps = 10}}).canDoMore);
  EXPECT_EQ(judge(10, {{.gbps = 0.48, .limitGbps = 0.48}}).suspects, std::set<Suspect>{drive});
}

TEST(SpeedOracle, BlamesTheHubBetweenTwoSlowLinks) {
  const std::vector<SeenLink> path = {{.gbps = 5}, {.gbps = 5, .provenGbps = 10}};
  EXPECT_EQ(judge(10, path).suspects, (std::set<Suspect>{{0, false}}));
}

TEST(SpeedOracle, BlamesTheFirstLinkThatIsUSB2) {
  const std::vector<SeenLink> path = {
      {.gbps = 10}, {.gbps = 0.48, .provenGbps = 5}, {.gbps = 0.48, .provenGbps = 5}};
  EXPECT_EQ(judge(10, path).suspects, (std::set<Suspect>{{1, true}}));
}

} // namespace
} // namespace tamberline
