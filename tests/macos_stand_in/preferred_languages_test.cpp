#include "macos_stand_in/fake_mac.h"
#include "platform/preferred_languages.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

class MacLanguages : public testing::Test {
protected:
  void SetUp() override { FakeMac::reset(); }
  void TearDown() override { EXPECT_EQ(FakeMac::get().heldReferences, 0); }
};

TEST_F(MacLanguages, AreThoseOfTheSystemInItsOrder) {
  FakeMac::get().languages = {"de-CH", "en-US", "zh-Hant-TW"};
  EXPECT_EQ(preferredLanguages(), (std::vector<std::string>{"de-CH", "en-US", "zh-Hant-TW"}));
}

TEST_F(MacLanguages, CanHoldAnyLetter) {
  FakeMac::get().languages = {"dé-€"};
  EXPECT_EQ(preferredLanguages(), std::vector<std::string>{"dé-€"});
}

TEST_F(MacLanguages, AreNoneIfTheSystemHasNone) {
  EXPECT_TRUE(preferredLanguages().empty());
  FakeMac::get().givesLanguages = false;
  EXPECT_TRUE(preferredLanguages().empty());
}

TEST_F(MacLanguages, AreEmptyWhereTheyCannotBeRead) {
  FakeMac::get().languages = {"unreadable", "fr-FR"};
  EXPECT_EQ(preferredLanguages(), (std::vector<std::string>{"", "fr-FR"}));
}

} // namespace
} // namespace tamberline
