#include "base/shown_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

std::string repeated(const std::string& piece, std::size_t count) {
  std::string text;
  for (std::size_t index = 0; index < count; ++index) {
    text += piece;
  }
  return text;
}

TEST(ShownText, LeavesHarmlessTextAsItIs) {
  for (const char* text : {"", "Quarry SSD", "<b>bold</b> &amp;", "Kühlbox Größe 3", "日本語 ✓",
                           "a  b", "naïve \u200D joiner", "\u00A0kept\u00A0"}) {
    EXPECT_EQ(shownText(text), text);
  }
}

TEST(ShownText, DropsWhiteSpaceAtTheEnds) {
  EXPECT_EQ(shownText("  Quarry SSD \t\r\n"), "Quarry SSD");
  EXPECT_EQ(shownText(" \n "), "");
}

TEST(ShownText, ReplacesEachCharacterThatCouldDisturbATerminal) {
  const struct {
    const char* description;
    std::string text;
    const char* shown;
  } rows[] = {
      {"escape sequence", "a\x1b[31mb", "a\uFFFD[31mb"},
      {"line break", "a\nb", "a\uFFFDb"},
      {"carriage return", "a\rb", "a\uFFFDb"},
      {"tab", "a\tb", "a\uFFFDb"},
      {"backspace and bell", "a\b\ab", "a\uFFFD\uFFFDb"},
      {"NUL", std::string("a\0b", 3), "a\uFFFDb"},
      {"last of the first control characters",
       "a\x1F"
       "b",
       "a\uFFFDb"},
      {"delete",
       "a\x7F"
       "b",
       "a\uFFFDb"},
      {"first of the second control characters", "a\u0080b", "a\uFFFDb"},
      {"one-character escape sequence", "a\u009B31mb", "a\uFFFD31mb"},
      {"last of the second control characters", "a\u009Fb", "a\uFFFDb"},
      {"line and paragraph separator", "a\u2028\u2029b", "a\uFFFD\uFFFDb"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(shownText(row.text), row.shown);
  }
}

TEST(ShownText, ReplacesDirectionOverrides) {
  for (const char* character : {"\u061C", "\u200E", "\u200F", "\u202A", "\u202B", "\u202C",
                                "\u202D", "\u202E", "\u2066", "\u2067", "\u2068", "\u2069"}) {
    EXPECT_EQ(shownText(std::string("a") + character + "b"), "a\uFFFDb");
  }
}

TEST(ShownText, KeepsTheNeighboursOfWhatItReplaces) {
  for (const char* text : {"a b", "a~b", "a\u00A0b", "a\u200Db", "a\u2010b", "a\u2027b", "a\u202Fb",
                           "a\u2065b", "a\u206Ab"}) {
    EXPECT_EQ(shownText(text), text);
  }
}

TEST(ShownText, ReplacesEveryInvalidByte) {
  EXPECT_EQ(shownText("a\xFF\xFE"
                      "b"),
            "a\uFFFD\uFFFDb");
  EXPECT_EQ(shownText("a\xC3"), "a\uFFFD");
}

TEST(ShownText, CutsTheMiddleOutOfALongText) {
  EXPECT_EQ(shownText(repeated("x", 120)), repeated("x", 120));
  EXPECT_EQ(shownText(repeated("a", 60) + repeated("b", 61)),
            repeated("a", 60) + "…" + repeated("b", 59));
  EXPECT_EQ(shownText(repeated("x", 100'000)), repeated("x", 60) + "…" + repeated("x", 59));
}

TEST(ShownText, CountsCharactersAndNotBytes) {
  EXPECT_EQ(shownText(repeated("ü", 120)), repeated("ü", 120));
  EXPECT_EQ(shownText(repeated("日", 200)), repeated("日", 60) + "…" + repeated("日", 59));
}

TEST(ShownText, ReadsOnlyTheEndsOfATextThatIsFarTooLong) {
  const std::string middle = repeated("m", 1'000'000);
  for (const std::size_t shift : {0U, 1U, 2U, 3U}) { // the ends start inside a character
    const std::string text =
        repeated("日", 200) + middle + repeated("m", shift) + repeated("本", 200);
    EXPECT_EQ(shownText(text), repeated("日", 60) + "…" + repeated("本", 59));
  }
  EXPECT_EQ(shownText(repeated("\xFF", 1'000'000)),
            repeated("\uFFFD", 60) + "…" + repeated("\uFFFD", 59));
}

} // namespace
} // namespace tamberline
