#include "base/utf8.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tamberline {
namespace {

struct Character {
  std::string_view bytes;
  char32_t codePoint;
};

constexpr Character characters[] = {
    {std::string_view("\0", 1), 0},
    {"A", U'A'},
    {"\x7F", 0x7F},
    {"\xC2\x80", 0x80},
    {"ß", U'ß'},
    {"\xDF\xBF", 0x7FF},
    {"\xE0\xA0\x80", 0x800},
    {"…", U'…'},
    {"\xED\x9F\xBF", 0xD7FF},
    {"\xEE\x80\x80", 0xE000},
    {"\xEF\xBF\xBF", 0xFFFF},
    {"\xF0\x90\x80\x80", 0x10000},
    {"🔋", U'🔋'},
    {"\xF4\x8F\xBF\xBF", 0x10FFFF},
};

TEST(Utf8, DecodesTheFirstCharacter) {
  for (const auto& [bytes, codePoint] : characters) {
    SCOPED_TRACE(static_cast<std::uint32_t>(codePoint));
    const DecodedCharacter decoded = decodeFirstCharacter(std::string(bytes) + "x");
    EXPECT_TRUE(decoded.isValid);
    EXPECT_EQ(decoded.codePoint, codePoint);
    EXPECT_EQ(decoded.length, bytes.size());
  }
}

TEST(Utf8, EncodesWhatItDecodes) {
  std::string encoded;
  std::string expected;
  for (const auto& [bytes, codePoint] : characters) {
    appendUtf8(codePoint, encoded);
    expected += bytes;
  }
  EXPECT_EQ(encoded, expected);
  EXPECT_TRUE(isValidUtf8(encoded));
}

TEST(Utf8, TheEmptyTextIsValid) {
  EXPECT_TRUE(isValidUtf8(""));
}

struct Malformed {
  const char* what;
  std::string_view bytes;
};

TEST(Utf8, RefusesMalformedBytes) {
  constexpr Malformed texts[] = {
      {"a continuation byte alone", "\x80"},
      {"an overlong form of two bytes", "\xC0\xAF"},
      {"another overlong form of two bytes", "\xC1\xBF"},
      {"an overlong form of three bytes", "\xE0\x9F\xBF"},
      {"an overlong form of four bytes", "\xF0\x8F\xBF\xBF"},
      {"the lowest surrogate", "\xED\xA0\x80"},
      {"the highest surrogate", "\xED\xBF\xBF"},
      {"a code point beyond the last", "\xF4\x90\x80\x80"},
      {"a lead byte beyond the last", "\xF5\x80\x80\x80"},
      {"two bytes cut short", "\xC3"},
      {"three bytes cut short", "\xE2\x80"},
      {"four bytes cut short", "\xF0\x9F\x94"},
      {"a second byte that continues nothing", "\xC3("},
      {"a third byte that continues nothing", "\xE2\x80("},
      {"a fourth byte that continues nothing", "\xF0\x9F\x94("},
      {"Latin-1", "Ger\xE4t"},
      {"no byte of any text", "\xFF"},
  };
  for (const auto& [what, bytes] : texts) {
    SCOPED_TRACE(what);
    EXPECT_FALSE(isValidUtf8(bytes));
    EXPECT_FALSE(isValidUtf8("before " + std::string(bytes)));
  }
}

TEST(Utf8, ReportsAMalformedByteAsOneByte) {
  const DecodedCharacter decoded = decodeFirstCharacter("\xE2\x80(");
  EXPECT_FALSE(decoded.isValid);
  EXPECT_EQ(decoded.length, 1U);
}

} // namespace
} // namespace tamberline
