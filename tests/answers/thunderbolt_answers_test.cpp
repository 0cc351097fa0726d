#include "answers/answer_text.h"
#include "answers/find_answers.h"
#include "support/sample_records.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

std::vector<Answer> answersFor(const ThunderboltDevice& device) {
  const std::vector<TreeNode> tree =
      assignStableIDs(buildPortTree({.thunderboltBuses = {thunderboltBus(0, {device})}}), "");
  return findAnswers({.portTree = tree});
}

ThunderboltDevice dock() {
  ThunderboltDevice device = thunderboltDevice("Harbour Dock");
  device.isAuthorized = true;
  device.link = TrueLink{40, 40, 2, 2};
  device.linkLimit = LinkLimit{2, 20};
  return device;
}

TEST(ThunderboltAnswers, NoneForAnAuthorizedDeviceAtItsBest) {
  EXPECT_EQ(answersText(answersFor(dock())), "none\n");
}

TEST(ThunderboltAnswers, NoneIfNothingIsKnown) {
  EXPECT_EQ(answersText(answersFor(thunderboltDevice("Harbour Dock"))), "none\n");
}

TEST(ThunderboltAnswers, NameADeviceThatIsNotAuthorized) {
  ThunderboltDevice device = dock();
  device.isAuthorized = false;
  const std::vector<Answer> answers = answersFor(device);
  EXPECT_EQ(answersText(answers), "attention notAuthorized /port1/tb:uid-Harbour Dock: node\n");
  EXPECT_EQ(answers.at(0).headline, "Harbour Dock: not authorised");
}

struct LinkCase {
  std::string name;
  std::optional<TrueLink> link;
  std::optional<LinkLimit> limit;
  std::string reason; // empty for no answer
};

TEST(ThunderboltAnswers, CompareTheLinkWithWhatBothEndsCanDo) {
  const std::vector<LinkCase> cases = {
      {"one lane of two", TrueLink{20, 20, 1, 1}, LinkLimit{2, 20},
       "Both ends can use 2 lanes, but the link runs on one: 20\u00A0Gb/s instead of 40\u00A0Gb/s. "
       "The cable "
       "or its plugs are the limit."},
      {"half the speed", TrueLink{20, 20, 2, 2}, LinkLimit{2, 20},
       "Both ends can do 40\u00A0Gb/s, but the link between them runs at 20\u00A0Gb/s. The cable "
       "or its "
       "plugs are the limit."},
      {"one lane at half the speed", TrueLink{10, 10, 1, 1}, LinkLimit{2, 20},
       "Both ends can use 2 lanes, but the link runs on one: 10\u00A0Gb/s instead of 40\u00A0Gb/s. "
       "The cable "
       "or its plugs are the limit."},
      {"an asymmetric link uses all lanes", TrueLink{120, 40, 3, 1}, LinkLimit{2, 40}, ""},
      {"as fast as the slower end", TrueLink{20, 20, 2, 2}, LinkLimit{2, 10}, ""},
      {"faster than its limit, so the limit is wrong", TrueLink{80, 80, 2, 2}, LinkLimit{2, 20},
       ""},
      {"unknown link", std::nullopt, LinkLimit{2, 20}, ""},
      {"unknown lanes", TrueLink{20, 20, {}, {}}, LinkLimit{2, 20}, ""},
      {"unknown direction", TrueLink{20, {}, 1, 1}, LinkLimit{2, 20}, ""},
      {"unknown limit", TrueLink{20, 20, 1, 1}, std::nullopt, ""},
      {"one lane, and only the number of lanes is known", TrueLink{10, 10, 1, 1}, LinkLimit{2, {}},
       "Both ends can use 2 lanes, but the link runs on one: 10\u00A0Gb/s instead of 20\u00A0Gb/s. "
       "The cable "
       "or its plugs are the limit."},
      {"all lanes, and only their number is known", TrueLink{20, 20, 2, 2}, LinkLimit{2, {}}, ""},
      {"unknown number of lanes", TrueLink{20, 20, 1, 1}, LinkLimit{{}, 20}, ""},
  };
  for (const LinkCase& one : cases) {
    SCOPED_TRACE(one.name);
    ThunderboltDevice device = dock();
    device.link = one.link;
    device.linkLimit = one.limit;
    const std::vector<Answer> answers = answersFor(device);
    EXPECT_EQ(answers.empty() ? "" : answers.at(0).reason, one.reason);
    EXPECT_LE(answers.size(), 1U);
  }
}

TEST(ThunderboltAnswers, AreAboutTheDeviceWhoseLinkIsSlow) {
  ThunderboltDevice drive = dock();
  drive.name = "Drive";
  drive.uid = "drive";
  drive.link = TrueLink{20, 20, 1, 1};
  ThunderboltDevice first = dock();
  first.children = {drive};
  const std::vector<Answer> answers = answersFor(first);
  EXPECT_EQ(answersText(answers), "attention slowThunderboltLink /port1/tb:uid-Harbour "
                                  "Dock/tb:drive: connection\n");
  EXPECT_EQ(answers.at(0).headline, "Drive: link at 20\u00A0Gb/s of 40\u00A0Gb/s");
}

TEST(Answers, AreEqualForEqualScans) {
  ThunderboltDevice device = dock();
  device.isAuthorized = false;
  EXPECT_EQ(answersFor(device), answersFor(device));
}

} // namespace
} // namespace tamberline
