#include "support/sample_records.h"
#include "views/search_suggestions.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

const std::vector<SearchEntry> entries = {
    {"/a", "USB Hub", "", "Port"},
    {"/b", "Quarry SSD", "Quarry", "Port"},
    {"/c", "Keys", "Hubert & Söhne", "Port"},
    {"/d", "ÉCRAN", "Lumière", "Quarry Dock"},
};

std::string namesOf(const std::vector<SearchEntry>& found) {
  std::string names;
  for (const SearchEntry& entry : found) {
    names += "[" + entry.name + "]";
  }
  return names;
}

TEST(SearchSuggestions, MatchNameOrMakerIgnoringCaseInTreeOrder) {
  const struct {
    const char* searchText;
    const char* names;
  } rows[] = {
      {"hub", "[USB Hub][Keys]"}, {"usb hub", "[USB Hub]"}, {"SSD", "[Quarry SSD]"},
      {"quarry", "[Quarry SSD]"}, {"söhne", "[Keys]"},      {"SÖHNE", "[Keys]"},
      {"écran", "[ÉCRAN]"},       {"e", "[Keys][ÉCRAN]"},   {"Port", ""},
      {"hub_device", ""},         {"usb  hub", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.searchText);
    EXPECT_EQ(namesOf(filteredSuggestions(entries, row.searchText)), row.names);
  }
}

TEST(SearchSuggestions, AreTheWholeEntries) {
  const std::vector<SearchEntry> found = filteredSuggestions(entries, "keys");

  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0], entries[2]);
}

TEST(SearchSuggestions, FindUnnamedHubsByTheNameThatIsShown) {
  const std::vector<TreeNode> tree = {
      TreeNode(TreeNode::USBDeviceEntry{usbDevice("hub_device"), 10, 900})};

  EXPECT_EQ(namesOf(filteredSuggestions(flattenSearchable(tree), "usb hub")), "[USB Hub]");
}

TEST(SearchSuggestions, FindNothingInAnEmptyTree) {
  EXPECT_EQ(namesOf(filteredSuggestions({}, "hub")), "");
}

} // namespace
} // namespace tamberline
