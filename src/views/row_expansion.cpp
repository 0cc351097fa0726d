#include "views/row_expansion.h"

#include <unordered_set>

namespace tamberline {

bool RowExpansion::isExpanded(const std::string& id, bool startsExpanded,
                              const std::set<std::string>& overrideIDs) const {
  const auto known = known_.find(id);
  return (known == known_.end() ? startsExpanded : known->second) || overrideIDs.contains(id);
}

void RowExpansion::collapseAll(const std::vector<std::string>& ids) {
  known_.clear();
  for (const std::string& id : ids) {
    known_.emplace(id, false);
  }
}

void RowExpansion::keepOnly(const std::vector<std::string>& ids) {
  const std::unordered_set<std::string_view> kept(ids.begin(), ids.end());
  std::erase_if(known_, [&](const auto& entry) { return !kept.contains(entry.first); });
}

} // namespace tamberline
