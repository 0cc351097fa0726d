#include "base/text.h"
#include "support/process_locale_scope.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <locale>
#include <string>
#include <string_view>

namespace tamberline {
namespace {

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

struct Spelling {
  std::string_view text;
  std::int64_t value;
};

TEST(DecimalText, IsAnOptionalSignAndDigits) {
  constexpr Spelling spellings[] = {
      {"0", 0},
      {"500", 500},
      {"+500", 500},
      {"-500", -500},
      {"-0", 0},
      {"007", 7},
      {"9223372036854775807", highest},
      {"+9223372036854775807", highest},
      {"-9223372036854775808", lowest},
      {"000000000000000000000000000005", 5},
  };
  for (const auto& [text, value] : spellings) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseDecimal(text), value);
  }
}

TEST(DecimalText, IsNothingElse) {
  constexpr std::string_view texts[] = {
      "",
      "+",
      "-",
      "+-5",
      "-+5",
      "--5",
      "++5",
      " 5",
      "5 ",
      "5 mA",
      "5.0",
      "5,0",
      "1e3",
      "0x10",
      "n/a",
      "٥",
      "9223372036854775808",
      "-9223372036854775809",
      "99999999999999999999999",
  };
  for (const std::string_view text : texts) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseDecimal(text), std::nullopt);
  }
}

TEST(DecimalText, DoesNotEndAtANulByte) {
  EXPECT_EQ(parseDecimal(std::string_view("5\0", 2)), std::nullopt);
}

TEST(HexadecimalText, IsAnOptionalSignAndDigitsOfEitherCase) {
  constexpr Spelling spellings[] = {
      {"0", 0},       {"01100000", 0x01100000},      {"fF100000", 0xFF100000},      {"+1F", 0x1F},
      {"-1f", -0x1F}, {"7fffffffffffffff", highest}, {"-8000000000000000", lowest},
  };
  for (const auto& [text, value] : spellings) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseHexadecimal(text), value);
  }
}

TEST(HexadecimalText, IsNothingElse) {
  constexpr std::string_view texts[] = {
      "",
      "+",
      "-",
      "+-1",
      "0x1",
      "0X1",
      "g",
      " 1",
      "1 ",
      "1 / 2",
      "8000000000000000",
      "-8000000000000001",
      "ffffffffffffffff",
  };
  for (const std::string_view text : texts) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseHexadecimal(text), std::nullopt);
  }
}

TEST(NumberOfAText, HasDecimalsOrNone) {
  EXPECT_EQ(parseNumber("0"), 0);
  EXPECT_EQ(parseNumber("40"), 40);
  EXPECT_EQ(parseNumber("007"), 7);
  EXPECT_EQ(parseNumber("20.625"), 20.625);
  EXPECT_EQ(parseNumber("2.50"), 2.5);
  EXPECT_EQ(parseNumber("123456789012.5"), 123456789012.5);
}

TEST(NumberOfAText, IsNothingElse) {
  for (const char* text : {"", ".", "1.", ".5", "1.2.3", "1,5", "-1", "+1", "1.+5", "1e3", "inf",
                           "nan", "0x10", " 1", "1 ", "1234567890123", "0.1234567890123"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseNumber(text), std::nullopt);
  }
}

TEST(FixedNumberText, HasAsManyDecimalsAsAsked) {
  EXPECT_EQ(fixedText(7.25, 1), "7.2"); // a tie goes to the even digit
  EXPECT_EQ(fixedText(7.35, 1), "7.3"); // which is stored as slightly less
  EXPECT_EQ(fixedText(7.75, 1), "7.8");
  EXPECT_EQ(fixedText(0.75, 2), "0.75");
  EXPECT_EQ(fixedText(15, 1), "15.0");
  EXPECT_EQ(fixedText(2.5, 0), "2");
  EXPECT_EQ(fixedText(-0.5, 1), "-0.5");
  EXPECT_EQ(fixedText(1234567.0, 1), "1234567.0");
  EXPECT_EQ(fixedText(1e300, 1).size(), 303U); // also the max numbers
}

TEST(GeneralNumberText, HasNoMoreDigitsThanNeeded) {
  EXPECT_EQ(generalText(10), "10");
  EXPECT_EQ(generalText(5.0), "5");
  EXPECT_EQ(generalText(0.48), "0.48");
  EXPECT_EQ(generalText(0.0015), "0.0015");
  EXPECT_EQ(generalText(0), "0");
  EXPECT_EQ(generalText(1234567), "1.23457e+06");
}

/// Sets a decimal comma, as in much of Europe, for the language's own streams during its lifetime.
class DecimalCommaScope {
public:
  DecimalCommaScope() : before_(std::locale::global(std::locale(std::locale(), new Comma))) {}
  DecimalCommaScope(const DecimalCommaScope&) = delete;
  DecimalCommaScope& operator=(const DecimalCommaScope&) = delete;
  ~DecimalCommaScope() { std::locale::global(before_); }

private:
  class Comma final : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::locale before_;
};

TEST(NumberText, IsTheSameInAProcessWithADecimalComma) {
  const ProcessLocaleScope scope("de_DE.UTF-8");
  if (!scope.isSet()) {
    GTEST_SKIP() << "this system has no German locale";
  }
  EXPECT_EQ(fixedText(1234.5, 1), "1234.5");
  EXPECT_EQ(fixedText(-0.25, 2), "-0.25");
  EXPECT_EQ(fixedText(12345, 0), "12345");
  EXPECT_EQ(generalText(0.48), "0.48");
  EXPECT_EQ(generalText(1234567), "1.23457e+06");
  EXPECT_EQ(generalText(2e20), "2e+20");
  EXPECT_EQ(generalText(std::numeric_limits<double>::infinity()), "inf");
}

TEST(NumberText, IsTheSameUnderALocaleWithADecimalComma) {
  const DecimalCommaScope scope;
  EXPECT_EQ(fixedText(1234.5, 1), "1234.5");
  EXPECT_EQ(generalText(0.48), "0.48");
  EXPECT_EQ(generalText(12345), "12345");
  EXPECT_EQ(parseDecimal("1.234"), std::nullopt);
  EXPECT_EQ(parseDecimal("1234"), 1234);
}

} // namespace
} // namespace tamberline
