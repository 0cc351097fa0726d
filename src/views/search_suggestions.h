#pragma once

#include "tree/search_entries.h"

#include <string_view>
#include <vector>

namespace tamberline {

/// The entries whose name or maker contains the text, ignoring case, in tree order.
std::vector<SearchEntry> filteredSuggestions(const std::vector<SearchEntry>& entries,
                                             std::string_view searchText);

} // namespace tamberline
