#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// What the rows themselves remember of being open or closed, by stable identifier. A row that was
/// not seen yet is as it starts, and then stays so until somebody touches it: a dock that was seen
/// before its devices came does not open by itself. A row counts as open too while its identifier
/// is in the scanner's expandedOverrideIDs.
class RowExpansion {
public:
  bool isExpanded(const std::string& id, bool startsExpanded,
                  const std::set<std::string>& overrideIDs) const;

  void set(const std::string& id, bool isExpanded) { known_[id] = isExpanded; }

  /// The row is seen.
  void see(const std::string& id, bool startsExpanded) { known_.try_emplace(id, startsExpanded); }

  /// Closes every one of the rows, those that start open included.
  void collapseAll(const std::vector<std::string>& ids);

  /// Forgets every row that is not among `ids`: what is plugged in anew starts anew.
  void keepOnly(const std::vector<std::string>& ids);

private:
  std::map<std::string, bool> known_;
};

} // namespace tamberline
