#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tamberline {

/// The open or closed state of the rows, by stable identifier. A new row gets its initial state and
/// then keeps it until the user changes it: a dock that was shown before its devices were found
/// does not open by itself. A row is also open while its identifier is in the scanner's
/// expandedOverrideIDs.
class RowExpansion {
public:
  bool isExpanded(const std::string& id, bool startsExpanded,
                  const std::set<std::string>& overrideIDs) const;

  void set(const std::string& id, bool isExpanded) { known_[id] = isExpanded; }

  /// Records the initial state of a row when it is shown.
  void see(const std::string& id, bool startsExpanded) { known_.try_emplace(id, startsExpanded); }

  /// Closes all of the rows, including those that start open.
  void collapseAll(const std::vector<std::string>& ids);

  /// Forgets every row that is not among `ids`: a device that is plugged in again starts in its
  /// initial state.
  void keepOnly(const std::vector<std::string>& ids);

private:
  std::map<std::string, bool> known_;
};

} // namespace tamberline
