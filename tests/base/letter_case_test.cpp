#include "base/letter_case.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tamberline {
namespace {

struct Change {
  std::string_view text;
  std::string_view changed;
};

TEST(LowerCase, KnowsLettersBeyondAscii) {
  constexpr Change changes[] = {
      {"USB Hub 3.1", "usb hub 3.1"},
      {"ÜBERTRÄGER", "überträger"},
      {"ÉCRAN", "écran"},
      {"ЖЁЛТЫЙ", "жёлтый"},
      {"ΔΕΛΤΑ", "δελτα"},
      {"straße", "straße"},
      {"磁気ディスク", "磁気ディスク"},
      {"", ""},
  };
  for (const auto& [text, changed] : changes) {
    SCOPED_TRACE(text);
    EXPECT_EQ(lowerCased(text), changed);
  }
}

TEST(TitleCase, RaisesTheFirstCharacterOfEachWordAndLowersTheRest) {
  constexpr Change changes[] = {
      {"usb4 gen3x1", "Usb4 Gen3x1"}, {"THUNDERBOLT FIVE", "Thunderbolt Five"},
      {"élan ünique", "Élan Ünique"}, {"  two  blanks ", "  Two  Blanks "},
      {"3rd party", "3rd Party"},     {"", ""},
  };
  for (const auto& [text, changed] : changes) {
    SCOPED_TRACE(text);
    EXPECT_EQ(titleCased(text), changed);
  }
}

TEST(TitleCase, SeparatesWordsAtBlanksOnly) {
  EXPECT_EQ(titleCased("one\ttwo-three_four\u00A0five"), "One\ttwo-three_four\u00A0five");
}

TEST(LetterCase, KeepsInvalidUtf8) {
  EXPECT_EQ(lowerCased("A\xFF"
                       "B\xC3"),
            "a\xFF"
            "b\xC3");
  EXPECT_EQ(titleCased("\xFF"
                       "AB \xC3"),
            "\xFF"
            "ab \xC3");
}

TEST(LetterCase, KeepsNulBytes) {
  EXPECT_EQ(lowerCased(std::string_view("A\0B", 3)), std::string_view("a\0b", 3));
}

} // namespace
} // namespace tamberline
