#include "expectation/expectation_check.h"
#include "expectation/expectation_output.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;

Inventory desk() {
  return {
      {.kind = InventoryItem::Kind::port, .id = "/port1", .name = "Port 1", .portNumber = 1},
      {.id = "/port1/a",
       .parent = 0,
       .name = "SSD ",
       .vendorID = "0x05ac",
       .productID = "0x1",
       .serialNumber = "S1",
       .portNumber = 1,
       .speedGbps = 10,
       .volumes = {{"Data", "/d"}}},
      {.kind = InventoryItem::Kind::port, .id = "/port2", .name = "Port 2", .portNumber = 2},
      {.id = "/port2/b",
       .parent = 2,
       .name = "SSD",
       .vendorID = "0x05ac",
       .productID = "0x1",
       .serialNumber = "S2",
       .portNumber = 2,
       .speedGbps = 5},
  };
}

std::string check(const std::vector<Expectation>& expectations) {
  return expectationText(checkedAgainst(desk(), expectations), desk(), /*useColors=*/false);
}

TEST(ExpectationCheck, FindsDevicesByEachOfTheirMarks) {
  EXPECT_EQ(check({{.name = "SSD"}}), "As expected  SSD  Port 1\n");
  EXPECT_EQ(check({{.vendorID = "0x5AC", .productID = "0x0001"}}),
            "As expected  0x5AC:0x0001  Port 1\n");
  EXPECT_EQ(check({{.serialNumber = "S2"}}), "As expected  S2  Port 2\n");
  EXPECT_EQ(check({{.name = "SSD", .serialNumber = "S3"}}), "Missing  SSD\n");
  EXPECT_EQ(check({{.name = "Port 1"}}), "Missing  Port 1\n");
  EXPECT_EQ(check({}), "");
}

TEST(ExpectationCheck, SaysInWhatADeviceDiffers) {
  EXPECT_EQ(check({{.serialNumber = "S2", .port = 1, .minGbps = 10, .volumes = {"Data"}}}),
            "Differs  S2  Thunderbolt Port 2 — expected on Thunderbolt Port 1 · 5 Gb/s — expected "
            "at least 10 Gb/s · expected volume Data\n");
  EXPECT_EQ(check({{.serialNumber = "S1", .port = 1, .minGbps = 10, .volumes = {"Data"}}}),
            "As expected  S1  Port 1\n");
}

TEST(ExpectationCheck, NeedsADeviceForEachExpectation) {
  EXPECT_EQ(check({{.name = "SSD"}, {.name = "SSD"}, {.name = "SSD"}}),
            "As expected  SSD  Port 1\nAs expected  SSD  Port 2\nMissing  SSD\n");
}

TEST(ExpectationCheck, SharesDevicesOutSoThatMostExpectationsAreMet) {
  EXPECT_EQ(check({{.name = "SSD"}, {.name = "SSD", .minGbps = 10}}),
            "As expected  SSD  Port 2\nAs expected  SSD  Port 1\n");
  EXPECT_EQ(check({{.name = "SSD", .port = 3}, {.name = "SSD", .port = 1}}),
            "Differs  SSD  Thunderbolt Port 2 — expected on Thunderbolt Port 3\n"
            "As expected  SSD  Port 1\n");
}

TEST(ExpectationCheck, IsPrintedForProgramsThatRunTests) {
  const auto checked = checkedAgainst(
      desk(), {{.serialNumber = "S1"}, {.serialNumber = "it's #1"}, {.name = "SSD", .port = 3}});
  EXPECT_EQ(expectationTap(checked, desk()),
            "TAP version 14\n1..3\nok 1 - S1\nnot ok 2 - it's \\#1\n  ---\n  message: 'Missing'\n"
            "  ...\nnot ok 3 - SSD\n  ---\n  message: 'Differs  Thunderbolt Port 2 — expected on "
            "Thunderbolt Port 3'\n  ...\n");
}

TEST(ExpectationCheck, IsPrintedAsADocument) {
  const auto checked =
      checkedAgainst(desk(), {{.serialNumber = "S2", .port = 1, .minGbps = 10, .volumes = {"D"}},
                              {.name = "Printer"}});
  EXPECT_EQ(expectationDocument(checked, desk()).dump(1), Document::parse(R"({
    "isMet": false,
    "devices": [
      {"expected": "S2", "isMet": false, "id": "/port2/b", "shortfalls": [
        {"shortfall": "port", "expected": 1, "found": 2},
        {"shortfall": "speed", "expected": 10.0, "found": 5.0},
        {"shortfall": "volume", "expected": "D", "found": null}]},
      {"expected": "Printer", "isMet": false, "id": null, "shortfalls": []}]})")
                                                              .dump(1));
}

TEST(ExpectationCheck, KeepsNamesFromTheTerminal) {
  const auto checked = checkedAgainst(desk(), {{.name = "evil\x1b[31m\nok 2 - \u202ename"}});
  for (const std::string& text :
       {expectationText(checked, desk(), false), expectationTap(checked, desk())}) {
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_EQ(text.find("\nok 2"), std::string::npos);
  }
}

} // namespace
} // namespace tamberline
