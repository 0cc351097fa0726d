#pragma once

#include "tree/tree_node.h"

#include <string>
#include <vector>

namespace tamberline {

/// A result of the search: a node, found by its name or maker.
struct SearchEntry {
  std::string id;
  std::string name;
  std::string detail;
  /// The names of the containing nodes, joined with " › ".
  std::string breadcrumb;

  friend bool operator==(const SearchEntry&, const SearchEntry&) = default;
};

/// The devices and adapters of the tree, in tree order, with names as reported; `trail` names the
/// nodes that contain `nodes`.
std::vector<SearchEntry> flattenSearchable(const std::vector<TreeNode>& nodes,
                                           const std::vector<std::string>& trail = {});

/// The same with every name as rows show it, without the padding that some devices add.
std::vector<SearchEntry> shownSearchEntries(const std::vector<TreeNode>& nodes);

} // namespace tamberline
