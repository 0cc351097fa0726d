#include "reports/usb_report.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace tamberline {
namespace {

struct Location {
  std::string_view text;
  std::int64_t locationID;
};

TEST(LocationID, IsTheHexadecimalNumberBeforeTheSlash) {
  constexpr Location locations[] = {
      {"0x01100000 / 1", 0x01100000},
      {"0x02200000", 0x02200000},
      {"0xFF100000 / 5", 0xFF100000},
      {"0xff100000/5", 0xFF100000},
      {"0x1", 1},
      {"01100000", 0x01100000},
      {" \t0x01100000\n", 0x01100000},
      {"0x01100000 / 1 / 2", 0x01100000},
      {"0x01100000 /", 0x01100000},
      {"0x0", 0},
      {"abc", 0xABC},
  };
  for (const auto& [text, locationID] : locations) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseLocationID(text), locationID);
  }
}

TEST(LocationID, IsAbsentWithoutAHexadecimalNumber) {
  constexpr std::string_view texts[] = {
      "",
      " ",
      "0x",
      "0x / 1",
      "/ 1",
      "/",
      "n/a",
      "hub",
      "0x0110 0000",
      "0x01100000h",
      "0X01100000",
      "0x0x01",
      "0xFFFFFFFFFFFFFFFFF",
      "0xFFFFFFFFFFFFFFFF",
      "#0x1",
  };
  for (const std::string_view text : texts) {
    SCOPED_TRACE(text);
    EXPECT_EQ(parseLocationID(text), std::nullopt);
  }
}

TEST(LocationID, MayUseAllBitsOfASignedInteger) {
  EXPECT_EQ(parseLocationID("0x7FFFFFFFFFFFFFFF"), 0x7FFFFFFFFFFFFFFF);
}

} // namespace
} // namespace tamberline
