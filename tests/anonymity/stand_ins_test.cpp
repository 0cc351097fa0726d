#include "anonymity/stand_ins.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <string_view>

namespace tamberline {
namespace {

TEST(StandIns, AreTheSameForTheSameTextAndDifferentForOthers) {
  StandIns standIns;
  std::set<std::string> seen;
  for (int number = 0; number < 1000; ++number) {
    const std::string serial = "LW27C-" + std::to_string(number);
    standIns.learn(serial, SecretKind::identifier);
    const std::string standIn = standIns.standInFor(serial);
    EXPECT_EQ(standIns.standInFor(serial), standIn);
    EXPECT_TRUE(seen.insert(standIn).second) << standIn;
  }
}

TEST(StandIns, HaveTheShapeOfTheirText) {
  StandIns standIns;
  const std::string uuid = "4CDA5C04-517F-4000-8E5D-2F7D8BBC47CD";
  standIns.learn("0x075590D220A53E12", SecretKind::identifier);
  standIns.learn(uuid, SecretKind::identifier);
  standIns.learn("Fieldwork", SecretKind::volumeName);
  standIns.learn("/Volumes/Fieldwork", SecretKind::mountPoint);
  standIns.learn("idas-laptop", SecretKind::hostName);
  EXPECT_EQ(standIns.standInFor("0x075590D220A53E12").substr(0, 2), "0x");
  EXPECT_EQ(standIns.standInFor("0x075590D220A53E12").size(), 18U);
  EXPECT_EQ(standIns.standInFor(uuid).size(), uuid.size());
  EXPECT_NE(standIns.standInFor(uuid), uuid);
  EXPECT_EQ(standIns.standInFor("Fieldwork"), "Volume 1");
  EXPECT_EQ(standIns.standInFor("/Volumes/Fieldwork"), "/volumes/1");
  EXPECT_EQ(standIns.standInFor("idas-laptop"), "Host 1");
}

TEST(StandIns, DoNotDependOnTheText) {
  const auto standInOfFirst = [](const std::string& text) {
    StandIns standIns;
    standIns.learn(text, SecretKind::identifier);
    return standIns.standInFor(text);
  };
  EXPECT_EQ(standInOfFirst("QP2T-40B81C"), standInOfFirst("LW27C-00418"));
}

TEST(StandIns, ReplaceTheLongestTextAtEachPlace) {
  StandIns standIns;
  standIns.learn("Sommer", SecretKind::volumeName);
  standIns.learn("Küste Sommer", SecretKind::volumeName);
  EXPECT_EQ(standIns.replacedIn("Küste Sommer, Sommer and Sommerfest"),
            "Volume 1, Volume 2 and Volume 2fest");
  EXPECT_EQ(standIns.replacedIn("nothing here"), "nothing here");
}

/// The order of the learnt texts puts others between two with which a text starts.
TEST(StandIns, FindATextBetweenOthersThatBeginLikeIt) {
  for (const std::string longest : {"SN00", "SN001", "SN00123", "SN0012345"}) {
    StandIns standIns;
    for (const std::string other :
         {"S", "SN0", "SN000", "SN00122", "SN001234", "SN00123499", "T"}) {
      standIns.learn(other, SecretKind::identifier);
    }
    standIns.learn(longest, SecretKind::volumeName);
    EXPECT_EQ(standIns.replacedIn("<" + longest + ">"), "<Volume 1>") << longest;
  }
}

std::string randomText(std::mt19937& random, std::size_t maxLength) {
  std::string text(1 + random() % maxLength, ' ');
  for (char& character : text) {
    character = "01"[random() % 2];
  }
  return text;
}

/// Finds the longest learnt text at each place by trying all of them.
std::string replacedOneByOne(std::string_view text, const std::set<std::string>& learnt,
                             StandIns& standIns) {
  std::string replaced;
  while (!text.empty()) {
    std::string longest;
    for (const std::string& candidate : learnt) {
      const bool isPart = candidate.size() >= StandIns::minPartLength;
      if (isPart && text.starts_with(candidate) && candidate.size() > longest.size()) {
        longest = candidate;
      }
    }
    replaced += longest.empty() ? std::string(text.substr(0, 1)) : standIns.standInFor(longest);
    text.remove_prefix(std::max<std::size_t>(longest.size(), 1));
  }
  return replaced;
}

TEST(StandIns, ReplaceWhatTryingAllTextsFinds) {
  std::mt19937 random(1); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same texts in every run
  for (int round = 0; round < 200; ++round) {
    StandIns standIns;
    std::set<std::string> learnt;
    for (int count = 0; count < 20; ++count) {
      learnt.insert(randomText(random, 10));
    }
    for (const std::string& text : learnt) {
      standIns.learn(text, SecretKind::identifier);
    }
    const std::string text = randomText(random, 60);
    EXPECT_EQ(standIns.replacedIn(text), replacedOneByOne(text, learnt, standIns)) << text;
  }
}

/// Looking at all of them for each one would take minutes.
TEST(StandIns, AreFoundAmongManyTextsThatBeginAlike) {
  constexpr int count = 50'000;
  StandIns standIns;
  for (int number = 0; number < count; ++number) {
    standIns.learn("SN00" + std::to_string(number), SecretKind::volumeName);
  }
  for (int number = 0; number < count; ++number) {
    EXPECT_EQ(standIns.replacedIn("SN00" + std::to_string(number)),
              "Volume " + std::to_string(number + 1));
  }
}

TEST(StandIns, ReplaceShortTextsOnlyAsAWhole) {
  StandIns standIns;
  standIns.learn("USB", SecretKind::volumeName);
  EXPECT_EQ(standIns.standInFor("USB"), "Volume 1");
  EXPECT_EQ(standIns.replacedIn("USB 3.1 Bus"), "USB 3.1 Bus");
}

TEST(StandIns, LeaveWhatIdentifiesNothing) {
  StandIns standIns;
  for (const std::string text : {"", "  ", "/"}) {
    standIns.learn(text, SecretKind::mountPoint);
    EXPECT_EQ(standIns.standInFor(text), text);
  }
}

TEST(StandIns, ContainNoText) {
  StandIns standIns;
  standIns.learn("Volume", SecretKind::volumeName);
  standIns.learn("volumes", SecretKind::volumeName);
  standIns.learn("/mnt/x", SecretKind::mountPoint);
  EXPECT_EQ(standIns.standInFor("Volume").find("Volume"), std::string::npos);
  EXPECT_EQ(standIns.standInFor("/mnt/x").find("volumes"), std::string::npos);
}

TEST(StandIns, HandOutWhatIsNew) {
  StandIns standIns;
  standIns.learn("S-1000", SecretKind::identifier);
  EXPECT_TRUE(standIns.takeNew().isAnyIn("Stick S-1000"));
  EXPECT_FALSE(standIns.takeNew().isAnyIn("Stick S-1000"));
  standIns.learn("S-1000", SecretKind::volumeName);
  EXPECT_FALSE(standIns.takeNew().isAnyIn("Stick S-1000"));
  EXPECT_TRUE(standIns.isAnyIn("Stick S-1000"));
}

/// A person may have called a volume so.
TEST(StandIns, AreGivenUpIfATextIsInThem) {
  StandIns standIns;
  standIns.learn("Fieldwork", SecretKind::volumeName);
  standIns.learn("Sommer", SecretKind::volumeName);
  ASSERT_EQ(standIns.standInFor("Fieldwork"), "Volume 1");
  ASSERT_EQ(standIns.standInFor("Sommer"), "Volume 2");
  StandIns others;
  others.learn("Volume 1", SecretKind::volumeName);
  EXPECT_TRUE(standIns.giveUpThoseWith(others));
  EXPECT_FALSE(standIns.giveUpThoseWith(others));
  EXPECT_EQ(standIns.standInFor("Fieldwork"), "Volume 3");
  EXPECT_EQ(standIns.standInFor("Sommer"), "Volume 2");
}

TEST(StandIns, FindUuidsInsideOfTexts) {
  StandIns standIns;
  const std::string text = "at 4CDA5C04-517F-4000-8E5D-2F7D8BBC47CD.";
  standIns.learnUuidsIn(text);
  const std::string replaced = standIns.replacedIn(text);
  EXPECT_EQ(replaced.size(), text.size());
  EXPECT_EQ(replaced.find("4CDA5C04"), std::string::npos);
}

} // namespace
} // namespace tamberline
