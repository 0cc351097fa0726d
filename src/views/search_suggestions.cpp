#include "views/search_suggestions.h"

#include "base/letter_case.h"
#include "base/text.h"

#include <algorithm>
#include <iterator>

namespace tamberline {

std::vector<SearchEntry> filteredSuggestions(const std::vector<SearchEntry>& entries,
                                             std::string_view searchText) {
  const std::string wanted = lowerCased(searchText);
  std::vector<SearchEntry> matches;
  std::copy_if(entries.begin(), entries.end(), std::back_inserter(matches),
               [&](const SearchEntry& entry) {
                 return contains(lowerCased(entry.name), wanted) ||
                        contains(lowerCased(entry.detail), wanted);
               });
  return matches;
}

} // namespace tamberline
