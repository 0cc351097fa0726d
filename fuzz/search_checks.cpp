#include "search_checks.h"

#include "base/letter_case.h"
#include "fuzz_target.h"
#include "tree/node_identifiers.h"
#include "views/search_suggestions.h"

#include <algorithm>

namespace tamberline {
namespace {

/// Whether `some` are entries of `all`, in the same order.
bool isPartOf(const std::vector<SearchEntry>& some, const std::vector<SearchEntry>& all) {
  auto from = all.begin();
  return std::all_of(some.begin(), some.end(), [&](const SearchEntry& entry) {
    from = std::find(from, all.end(), entry);
    return from != all.end() && from++ != all.end();
  });
}

} // namespace

void requireSoundSearch(const std::vector<TreeNode>& tree, std::string_view searchText) {
  const std::vector<SearchEntry> entries = shownSearchEntries(tree);
  const std::vector<SearchEntry> found = filteredSuggestions(entries, searchText);
  require(isPartOf(found, entries), "what is found is in the tree, in its order");
  require(filteredSuggestions(entries, lowerCased(searchText)) == found,
          "the case of letters does not matter");
  for (const SearchEntry& entry : found) {
    require(!filteredSuggestions({entry}, entry.name).empty(), "a device is found by its name");
    require(!ancestorIDs(entry.id).empty(), "what is found can be shown");
  }
}

} // namespace tamberline
