#include "comparison/comparison_output.h"
#include "comparison/inventories.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tamberline {
namespace {

using Document = nlohmann::ordered_json;

TEST(ComparisonOutput, IsAnEmptyListForTheSameState) {
  EXPECT_EQ(comparisonDocument({}), Document::parse(R"({"isSame": true, "changes": []})"));
}

TEST(ComparisonOutput, HasTheFactsOfAChange) {
  Inventory after = deskInventory();
  after[6].parent = 0;
  after[6].speedGbps = 5;
  EXPECT_EQ(comparisonDocument(comparisonOf(deskInventory(), after)).dump(1),
            Document::parse(R"({"isSame": false, "changes": [
    {"change": "moved",
     "item": {"kind": "usbDevice", "id": "/port2/usb:S2", "name": "Stick", "vendorID": "0x3",
              "productID": "0x3", "serialNumber": "S2", "portNumber": 2},
     "place": "Port 1", "placeBefore": "Port 2"},
    {"change": "faster",
     "item": {"kind": "usbDevice", "id": "/port2/usb:S2", "name": "Stick", "vendorID": "0x3",
              "productID": "0x3", "serialNumber": "S2", "portNumber": 2},
     "place": "Port 1", "unit": "Gb/s", "before": 0.48, "after": 5.0}]})")
                .dump(1));
}

TEST(ComparisonOutput, KeepsNamesFromTheTerminal) {
  Inventory after = deskInventory();
  after[6].name = "evil\x1b[31m\u202estick";
  after[6].serialNumber = "new";
  after[6].localKey = "new";
  const std::string text = comparisonText(comparisonOf(deskInventory(), after), false);
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_EQ(text.find("\u202e"), std::string::npos);
}

TEST(ComparisonOutput, WrapsAtTheWidthOfTheTerminal) {
  EXPECT_EQ(comparisonText(comparisonOf({}, deskInventory()), false, 30).substr(0, 12),
            "New  Port 1\n");
}

} // namespace
} // namespace tamberline
