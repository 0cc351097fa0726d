#include "expectation/expectation_file.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

using Expectations = std::vector<Expectation>;

std::string mistakeIn(const std::string& content) {
  const auto result = readExpectations(content);
  const auto* const mistake = std::get_if<FileMistake>(&result);
  return mistake == nullptr ? "none" : std::to_string(mistake->line) + ": " + mistake->reason;
}

/// A file with one device on the third line.
std::string withDevice(const std::string& device) {
  return "{\n \"devices\": [\n" + device + "\n ]\n}\n";
}

TEST(ExpectationFile, IsReadWithItsComments) {
  const auto result = readExpectations(R"({
    // the desk by the window
    "$schema": "expectations.schema.json",
    "expectations": 1,
    "devices": [
      {"name": "Dock", "port": 1, "minGbps": 40},
      /* the disk */
      {"vendorID": "0xE347", "productID": "0x5202", "serialNumber": "S1",
       "minGbps": 0.48, "volumes": ["Data", "Film"]},
      {"serialNumber": "S2"}
    ]
  })");
  ASSERT_TRUE(std::holds_alternative<Expectations>(result));
  EXPECT_EQ(std::get<Expectations>(result),
            (Expectations{{.name = "Dock", .port = 1, .minGbps = 40},
                          {.vendorID = "0xE347",
                           .productID = "0x5202",
                           .serialNumber = "S1",
                           .minGbps = 0.48,
                           .volumes = {"Data", "Film"}},
                          {.serialNumber = "S2"}}));
}

TEST(ExpectationFile, MayExpectNothing) {
  EXPECT_EQ(std::get<Expectations>(readExpectations(R"({"devices": []})")), Expectations());
}

TEST(ExpectationFile, GivesTheLineAndTheReasonOfAMistake) {
  const struct {
    std::string content;
    std::string mistake;
  } rows[] = {
      {"", "1: the file is empty"},
      {" \n\t", "1: the file is empty"},
      {"[]", "1: the file is not one object"},
      {"1", "1: the file is not one object"},
      {"{}", "1: the list 'devices' is missing"},
      {"{\n\"device\": []}", "2: there is no key 'device' here"},
      {"{\n\n\"devices\": 5\n}", "3: 'devices' is a list"},
      {"{\"devices\": {}}", "1: 'devices' is a list"},
      {"{\"devices\": [1]}", "1: 'devices' is a list of objects"},
      {"{\"devices\": [],\n\"devices\": []}", "2: 'devices' is there twice"},
      {"{\"expectations\": 2,\n\"devices\": []}", "1: 'expectations' is the number 1"},
      {withDevice("{}"),
       "3: a device is known by 'name', 'vendorID' and 'productID', or 'serialNumber'"},
      {withDevice("{\"port\": 1}"),
       "3: a device is known by 'name', 'vendorID' and 'productID', or 'serialNumber'"},
      {withDevice("{\"name\": \"A\",\n\"prot\": 1}"), "4: there is no key 'prot' here"},
      {withDevice("{\"name\": \"A\",\n\"port\":\n\"one\"}"),
       "4: 'port' is the number of a port, from 1"},
      {withDevice("{\"name\": \"A\",\n\"port\": 0\n}"),
       "4: 'port' is the number of a port, from 1"},
      {withDevice("{\"name\": \"A\", \"port\": 1.5}"), "3: 'port' is the number of a port, from 1"},
      {withDevice("{\"name\": \"A\", \"port\": 99999999999999999999}"),
       "3: 'port' is the number of a port, from 1"},
      {withDevice("{\"name\": \"A\", \"minGbps\": -1}"),
       "3: 'minGbps' is a speed in Gb/s, more than 0"},
      {withDevice("{\"name\": null}"), "3: 'name' is a text"},
      {withDevice("{\"name\": true}"), "3: 'name' is a text"},
      {withDevice("{\"name\": [\"A\"]}"), "3: 'name' is a text"},
      {withDevice("{\"name\": {}}"), "3: 'name' is a text"},
      {withDevice("{\"vendorID\": \"0x1\"}"), "3: 'vendorID' and 'productID' go together"},
      {withDevice("{\"vendorID\": \"5ac\"}"), "3: 'vendorID' is a text such as \"0x05ac\""},
      {withDevice("{\"name\": \"A\", \"volumes\": \"Data\"}"), "3: 'volumes' is a list"},
      {withDevice("{\"name\": \"A\",\n\"volumes\": [1]}"), "4: 'volumes' is a list of names"},
      {withDevice("{\"name\": \"A\", \"volumes\": [[]]}"), "3: 'volumes' is a list of names"},
      {"{\n\"devices\": [\n}", "3: syntax error while parsing value - unexpected '}'; expected "
                               "'[', '{', or a literal"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(mistakeIn(row.content), row.mistake) << row.content;
  }
}

TEST(ExpectationFile, IsQuotedWithoutControlCharacters) {
  EXPECT_EQ(mistakeIn(R"({"\u001b[31m\u009b\u202e\n": 1})"), "1: there is no key '�[31m���' here");
  const std::string invalid = mistakeIn("{\"devices\": [\x1b\u202e]}");
  for (const std::string unsafe : {"\x1b", "\u202e"}) {
    EXPECT_EQ(invalid.find(unsafe), std::string::npos) << invalid;
  }
  const std::string longest = mistakeIn("{\"" + std::string(100'000, 'k') + "\": 1}");
  EXPECT_LT(longest.size(), 300U);
}

TEST(ExpectationFile, HasLimits) {
  EXPECT_EQ(mistakeIn(std::string(maxExpectationFileBytes + 1, ' ')),
            "1: the file is larger than 1 MB");
  std::string devices = R"({"name": "A"})";
  for (std::size_t count = 0; count < maxExpectations; ++count) {
    devices += R"(, {"name": "A"})";
  }
  EXPECT_EQ(mistakeIn("{\"devices\": [" + devices + "]}"), "1: there are more than 1000 devices");
  EXPECT_NE(mistakeIn(std::string(900'000, '[')), "none");
}

TEST(ExpectationFile, IsMadeFromWhatIsThere) {
  const Inventory inventory = {
      {.kind = InventoryItem::Kind::port, .name = "Port 1", .portNumber = 1},
      {.kind = InventoryItem::Kind::thunderboltDevice,
       .parent = 0,
       .name = "Dock",
       .vendorID = "Harbour",
       .serialNumber = "0xD0",
       .portNumber = 1,
       .speedGbps = 40},
      {.name = "SSD",
       .vendorID = "0x0001",
       .productID = "0x0002",
       .portNumber = 1,
       .volumes = {{"Data", "/Volumes/Data"}}},
      {.name = "Odd", .vendorID = "apple_vendor_id", .productID = "0x1"},
  };
  const auto result = readExpectations(expectationsFor(inventory));
  EXPECT_EQ(std::get<Expectations>(result),
            (Expectations{{.name = "Dock", .serialNumber = "0xD0", .port = 1, .minGbps = 40},
                          {.name = "SSD",
                           .vendorID = "0x0001",
                           .productID = "0x0002",
                           .port = 1,
                           .volumes = {"Data"}},
                          {.name = "Odd"}}));
}

} // namespace
} // namespace tamberline
