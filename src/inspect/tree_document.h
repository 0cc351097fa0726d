#pragma once

#include "tree/search_entries.h"
#include "tree/tree_node.h"

#include <nlohmann/json_fwd.hpp>

namespace tamberline {

nlohmann::ordered_json describe(const TreeNode& node);
nlohmann::ordered_json describe(const SearchEntry& entry);

} // namespace tamberline
